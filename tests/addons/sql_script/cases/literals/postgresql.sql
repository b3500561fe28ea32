-- Demo: the schema for PostgreSQL
-- 1 table, 0 keys, 13 remarks

BEGIN;
SET LOCAL client_encoding = 'UTF8';
SET LOCAL standard_conforming_strings = on;

-- Remark: Literals.C2: the default value "32768" is left out, for it is no value of SMALLINT.
-- Remark: Literals.C5: the default value "0x10" is left out, for it is no value of INTEGER.
-- Remark: Literals.C6: the default value "9223372036854775808" is left out, for it is no value of BIGINT.
-- Remark: Literals.C9: the default value "100" is left out, for it is no value of DECIMAL(4,2).
-- Remark: Literals.C11: the default value "-99.995" is left out, for it is no value of DECIMAL(4,2).
-- Remark: Literals.C13: the default value "00.999" is left out, for it is no value of DECIMAL(2,2).
-- Remark: Literals.C15: the default value "1e" is left out, for it is no value of REAL.
-- Remark: Literals.C16: the default value "1e999" is left out, for it is no value of DOUBLE.
-- Remark: Literals.C19: the default value "2026-02-29" is left out, for it is no value of DATE.
-- Remark: Literals.C21: the default value "25:00" is left out, for it is no value of TIME.
-- Remark: Literals.C24: the default value "本棚がある" is left out, for it is no value of CHAR(3).
-- Remark: Literals.C30: the default value "0xabc" is left out, for it is no value of BINARY(2).
-- Remark: Literals.C36: the default value "-9223372036854775809" is left out, for it is no value of BIGINT.
CREATE TABLE "Literals" (
    "C1" smallint DEFAULT 200,
    "C2" smallint,
    "C3" integer DEFAULT -2147483648,
    "C4" integer DEFAULT 4,
    "C5" integer,
    "C6" bigint,
    "C7" bigint DEFAULT -9223372036854775807,
    "C8" numeric(4,2) DEFAULT 99.99,
    "C9" numeric(4,2),
    "C10" numeric(4,2) DEFAULT 99.994999,
    "C11" numeric(4,2),
    "C12" numeric(4,2) DEFAULT 0.9999E2,
    "C13" numeric(2,2),
    "C14" numeric(18,2) DEFAULT 9999999999999999.99,
    "C15" real,
    "C16" double precision,
    "C17" boolean DEFAULT TRUE,
    "C18" date DEFAULT CURRENT_DATE,
    "C19" date,
    "C20" time DEFAULT '08:15:30',
    "C21" time,
    "C22" timestamp DEFAULT '2026-02-28 00:00:00',
    "C23" char(3) DEFAULT '本棚が',
    "C24" char(3),
    "C25" varchar(9) DEFAULT 'it''s',
    "C26" varchar(9) DEFAULT '''it''s''',
    "C27" varchar(9) DEFAULT '\''',
    "C28" varchar(9) DEFAULT ' a ',
    "C29" text DEFAULT 'a',
    "C30" bytea,
    "C31" bytea DEFAULT '\xabcd',
    "C32" bytea DEFAULT '\xabcd',
    "C33" integer,
    "C34" varchar(9),
    "C35" bigint DEFAULT +9223372036854775807,
    "C36" bigint
);

COMMIT;
