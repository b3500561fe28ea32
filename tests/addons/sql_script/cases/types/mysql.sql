-- Demo: the schema for MySQL / MariaDB
-- 1 table, 0 keys, 1 remark

SET NAMES utf8mb4;
SET @old_sql_mode = @@SESSION.sql_mode;
SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION';

-- Remark: Types.DECIMAL(31,31): there is no counterpart of the type DECIMAL(31,31); LONGTEXT stands in its place.
CREATE TABLE `Types` (
    `CHAR(0,0)` CHAR,
    `CHAR(255,0)` CHAR(255),
    `CHAR(256,0)` VARCHAR(256),
    `VARCHAR(0,0)` LONGTEXT,
    `VARCHAR(16384,0)` LONGTEXT,
    `NUMERIC(0,0)` DECIMAL(65,30),
    `NUMERIC(9,0)` DECIMAL(9),
    `DECIMAL(31,30)` DECIMAL(31,30),
    `DECIMAL(31,31)` LONGTEXT,
    `FLOAT(0,0)` DOUBLE,
    `FLOAT(24,0)` FLOAT,
    `FLOAT(25,0)` DOUBLE
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

SET SESSION sql_mode = @old_sql_mode;
