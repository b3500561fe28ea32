-- Demo: the schema for MySQL / MariaDB
-- 8 tables, 3 keys

SET NAMES utf8mb4;
SET @old_sql_mode = @@SESSION.sql_mode;
SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION';

CREATE TABLE `select` (
    -- Storage: heap
    -- fillfactor 70

    `group` INT NOT NULL COMMENT 'the "group"',
    `from` VARCHAR(30),
    `Größe` DECIMAL(10,2) COMMENT 'größer als 0',
    PRIMARY KEY (`group`) COMMENT 'of ''select''',
    KEY `ByName` (`from`, `Größe` DESC),
    KEY `Only Here` (`from` DESC)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COMMENT 'It''s "the" table; `所有` -- not';

CREATE TABLE `Mixed Case $1` (
    `user id` INT NOT NULL,
    `order#` CHAR(8) NOT NULL,
    PRIMARY KEY (`user id`),
    UNIQUE KEY `BYNAME` (`order#` DESC) COMMENT 'twice in the schema',
    KEY `ORDERS` (`order#`) COMMENT 'as a table is called',
    -- goes with
    -- the "select"
    CONSTRAINT `Mixed Case $1_references` FOREIGN KEY (`user id`) REFERENCES `select` (`group`) ON DELETE CASCADE,
    CONSTRAINT `Mixed Case $1_ByName` FOREIGN KEY (`user id`) REFERENCES `Mixed Case $1` (`user id`) ON DELETE RESTRICT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

CREATE TABLE `注文明細テーブル注文明細テーブル注文明細テーブル` (
    `番号` BIGINT NOT NULL COMMENT '注文の番号',
    PRIMARY KEY (`番号`)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COMMENT '長い名前';

CREATE TABLE `sqlite_master` (
    `id` SMALLINT NOT NULL,
    PRIMARY KEY (`id`)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

CREATE TABLE `Orders` (
    `ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKL` INT,
    KEY `Orders_primary` (`ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKL`),
    CONSTRAINT `Orders_references` FOREIGN KEY (`ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKL`) REFERENCES `select` (`group`) ON DELETE RESTRICT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

CREATE TABLE `xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx` (
    `A` INT,
    KEY `注文明細テーブル注文明細テーブル注文明細テーブル` (`A`)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

CREATE TABLE `xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx` (
    `A` INT,
    KEY `注文明細テーブル注文明細テーブル注文明細テーブル` (`A`)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

CREATE TABLE `注文明細テーブル注文明細テーブル注文明細テーブル2` (
    `A` INT,
    KEY `注文明細テーブル注文明細テーブル注文明細テーブル` (`A`)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

SET SESSION sql_mode = @old_sql_mode;
