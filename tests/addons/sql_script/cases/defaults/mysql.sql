-- Demo: the schema for MySQL / MariaDB
-- 1 table, 0 keys

SET NAMES utf8mb4;
SET @old_sql_mode = @@SESSION.sql_mode;
SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION';

CREATE TABLE `Kept` (
    `Char` CHAR(4) NOT NULL DEFAULT 'P' COMMENT 'back\\slash',
    `Numeric` DECIMAL(8,3) DEFAULT -12.5 COMMENT '*/ /* -- ''',
    `Decimal` DECIMAL(5) DEFAULT 7,
    `Integer` INT NOT NULL DEFAULT 2 COMMENT 'rounded to the even neighbour',
    `Small` SMALLINT DEFAULT -32768,
    `Float` FLOAT DEFAULT 1e3,
    `Real` FLOAT DEFAULT .5,
    `Double` DOUBLE DEFAULT -1E-7,
    `Date` DATE DEFAULT '2026-02-28',
    `Time` TIME DEFAULT '23:59:00',
    `Stamp` DATETIME DEFAULT '2026-02-28 10:00:00',
    `Now` DATETIME NOT NULL DEFAULT CURRENT_TIMESTAMP,
    `Today` DATE NOT NULL DEFAULT (CURRENT_DATE),
    `Text` VARCHAR(40) DEFAULT 'O''Brien'');\\ -- "x"
y',
    `Long` LONGTEXT DEFAULT ('a long text'),
    `Big` BIGINT DEFAULT 9007199254740993 COMMENT 'more than a double holds',
    `Tiny` TINYINT DEFAULT 100,
    `Bool` BOOLEAN NOT NULL DEFAULT TRUE,
    `Bytes` BINARY(4) DEFAULT x'cafe',
    `VarBytes` VARBINARY(8) DEFAULT x'00ff',
    `LongBytes` LONGBLOB DEFAULT (x'4142'),
    `Empty` VARCHAR(10) NOT NULL DEFAULT '',
    `None` VARCHAR(10)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COMMENT 'first line
second''); DROP TABLE "Kept"; --third \\';

SET SESSION sql_mode = @old_sql_mode;
