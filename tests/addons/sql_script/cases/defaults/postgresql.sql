-- Demo: the schema for PostgreSQL
-- 1 table, 0 keys

BEGIN;
SET LOCAL client_encoding = 'UTF8';
SET LOCAL standard_conforming_strings = on;

CREATE TABLE "Kept" (
    "Char" char(4) NOT NULL DEFAULT 'P',
    "Numeric" numeric(8,3) DEFAULT -12.5,
    "Decimal" numeric(5) DEFAULT 7,
    "Integer" integer NOT NULL DEFAULT 2,
    "Small" smallint DEFAULT -32768,
    "Float" float(24) DEFAULT 1e3,
    "Real" real DEFAULT .5,
    "Double" double precision DEFAULT -1E-7,
    "Date" date DEFAULT '2026-02-28',
    "Time" time DEFAULT '23:59:00',
    "Stamp" timestamp DEFAULT '2026-02-28 10:00:00',
    "Now" timestamp NOT NULL DEFAULT CURRENT_TIMESTAMP,
    "Today" date NOT NULL DEFAULT CURRENT_DATE,
    "Text" varchar(40) DEFAULT 'O''Brien'');\ -- "x"
y',
    "Long" text DEFAULT 'a long text',
    "Big" bigint DEFAULT 9007199254740993,
    "Tiny" smallint DEFAULT 100,
    "Bool" boolean NOT NULL DEFAULT TRUE,
    "Bytes" bytea DEFAULT '\xcafe',
    "VarBytes" bytea DEFAULT '\x00ff',
    "LongBytes" bytea DEFAULT '\x4142',
    "Empty" varchar(10) NOT NULL DEFAULT '',
    "None" varchar(10)
);
COMMENT ON TABLE "Kept" IS 'first line
second''); DROP TABLE "Kept"; --third \';
COMMENT ON COLUMN "Kept"."Char" IS 'back\slash';
COMMENT ON COLUMN "Kept"."Numeric" IS '*/ /* -- ''';
COMMENT ON COLUMN "Kept"."Integer" IS 'rounded to the even neighbour';
COMMENT ON COLUMN "Kept"."Big" IS 'more than a double holds';

COMMIT;
