-- Demo: the schema for SQLite
-- 1 table, 0 keys
-- Run it with: sqlite3 -bail DATABASE < SCRIPT

BEGIN;

CREATE TABLE "Kept" (
    -- first line
    -- second'); DROP TABLE "Kept"; --
    -- third \

    -- back\slash
    "Char" CHAR(4) NOT NULL DEFAULT 'P',
    -- */ /* -- '
    "Numeric" NUMERIC(8,3) DEFAULT -12.5,
    "Decimal" DECIMAL(5) DEFAULT 7,
    -- rounded to the even neighbour
    "Integer" INTEGER NOT NULL DEFAULT 2,
    "Small" SMALLINT DEFAULT -32768,
    "Float" FLOAT(24) DEFAULT 1e3,
    "Real" REAL DEFAULT .5,
    "Double" DOUBLE DEFAULT -1E-7,
    "Date" DATE DEFAULT '2026-02-28',
    "Time" TIME DEFAULT '23:59:00',
    "Stamp" TIMESTAMP DEFAULT '2026-02-28 10:00:00',
    "Now" TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP,
    "Today" DATE NOT NULL DEFAULT CURRENT_DATE,
    "Text" VARCHAR(40) DEFAULT 'O''Brien'');\ -- "x"
y',
    "Long" TEXT DEFAULT 'a long text',
    -- more than a double holds
    "Big" BIGINT DEFAULT 9007199254740993,
    "Tiny" TINYINT DEFAULT 100,
    "Bool" BOOLEAN NOT NULL DEFAULT TRUE,
    "Bytes" BINARY(4) DEFAULT x'cafe',
    "VarBytes" VARBINARY(8) DEFAULT x'00ff',
    "LongBytes" BLOB DEFAULT x'4142',
    "Empty" VARCHAR(10) NOT NULL DEFAULT '',
    "None" VARCHAR(10)
);

COMMIT;
