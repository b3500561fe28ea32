-- Demo: the schema for MySQL / MariaDB
-- 3 tables, 1 key, 23 remarks

SET NAMES utf8mb4;
SET @old_sql_mode = @@SESSION.sql_mode;
SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION';

-- Remark: Empty: the table is left out, for it has no columns.

-- Remark: Target.Odd: there is no counterpart of the type ?; LONGTEXT stands in its place.
-- Remark: Target.Id: the column takes no Null, for it is in the primary key.
-- Remark: Target.NoColumns: the index is left out, for it has no columns.
CREATE TABLE `Target` (
    `Id` INT NOT NULL,
    `Code` VARCHAR(20),
    `Odd` LONGTEXT,
    PRIMARY KEY (`Id` DESC)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Remark: Source.Id: the default value "1,5" is left out, for it is no value of INTEGER.
-- Remark: Source.Day: the default value "31.12.2026" is left out, for it is no value of DATE.
-- Remark: Source.Letter: the default value "AB" is left out, for it is no value of CHAR(1).
-- Remark: Source.Flag: the default value "maybe" is left out, for it is no value of BOOLEAN.
-- Remark: Source.Share: the default value "123" is left out, for it is no value of DECIMAL(4,2).
-- Remark: Source.Nr: the default value "1); DROP TABLE "Target"; --" is left out, for it is no value of SMALLINT.
-- Remark: Source.Day: the column takes no Null, for it is in the primary key.
-- Remark: Source.OtherTable: the index is left out, for its columns are not in order: one is not there, or stands twice.
-- Remark: Source.Twice: the index is left out, for its columns are not in order: one is not there, or stands twice.
-- Remark: Source.NoPairs: the key is left out, for it joins no columns.
-- Remark: Source.NoTable: the key is left out, for what it joins is not there or stands twice.
-- Remark: Source.NoColumn: the key is left out, for what it joins is not there or stands twice.
-- Remark: Source.NotUnique: the key is left out, for no unique index of Target has exactly the columns that it refers to.
-- Remark: Source.OtherType: the key is left out, for MySQL / MariaDB joins no columns of the types VARCHAR(10) and INTEGER.
-- Remark: Source.ToEmpty: the key is left out, for what it joins is not there or stands twice.
CREATE TABLE `Source` (
    `Id` INT NOT NULL,
    `Target` VARCHAR(10),
    `Day` DATE NOT NULL,
    `Letter` CHAR(1),
    `Flag` BOOLEAN,
    `Share` DECIMAL(4,2),
    `Nr` SMALLINT,
    PRIMARY KEY (`Id`, `Day` DESC),
    CONSTRAINT `Good` FOREIGN KEY (`Id`) REFERENCES `Target` (`Id`) ON DELETE CASCADE
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Remark: Wide.Limit: there is no counterpart of the type NUMERIC(31,31); LONGTEXT stands in its place.
-- Remark: Wide.A: the type VARCHAR(16000) makes the rows too long for MySQL / MariaDB and becomes LONGTEXT.
-- Remark: Wide.Longest: the index is left out, for MySQL / MariaDB cannot take these columns into an index.
-- Remark: Wide.OnText: the index is left out, for MySQL / MariaDB cannot take these columns into an index.
CREATE TABLE `Wide` (
    `Key` VARCHAR(1000) NOT NULL,
    `A` LONGTEXT,
    `B` VARCHAR(8000),
    `Text` LONGTEXT,
    `Limit` LONGTEXT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

SET SESSION sql_mode = @old_sql_mode;
