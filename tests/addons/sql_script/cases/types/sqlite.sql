-- Demo: the schema for SQLite
-- 1 table, 0 keys
-- Run it with: sqlite3 -bail DATABASE < SCRIPT

BEGIN;

CREATE TABLE "Types" (
    "CHAR(0,0)" CHAR,
    "CHAR(255,0)" CHAR(255),
    "CHAR(256,0)" CHAR(256),
    "VARCHAR(0,0)" VARCHAR,
    "VARCHAR(16384,0)" VARCHAR(16384),
    "NUMERIC(0,0)" NUMERIC,
    "NUMERIC(9,0)" NUMERIC(9),
    "DECIMAL(31,30)" DECIMAL(31,30),
    "DECIMAL(31,31)" DECIMAL(31,31),
    "FLOAT(0,0)" FLOAT,
    "FLOAT(24,0)" FLOAT(24),
    "FLOAT(25,0)" FLOAT(25)
);

COMMIT;
