-- Demo: the schema for PostgreSQL
-- 1 table, 0 keys

BEGIN;
SET LOCAL client_encoding = 'UTF8';
SET LOCAL standard_conforming_strings = on;

CREATE TABLE "Types" (
    "CHAR(0,0)" char,
    "CHAR(255,0)" char(255),
    "CHAR(256,0)" char(256),
    "VARCHAR(0,0)" varchar,
    "VARCHAR(16384,0)" varchar(16384),
    "NUMERIC(0,0)" numeric,
    "NUMERIC(9,0)" numeric(9),
    "DECIMAL(31,30)" numeric(31,30),
    "DECIMAL(31,31)" numeric(31,31),
    "FLOAT(0,0)" float,
    "FLOAT(24,0)" float(24),
    "FLOAT(25,0)" float(25)
);

COMMIT;
