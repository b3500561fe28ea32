-- Demo: the schema for SQLite
-- 1 table, 0 keys, 13 remarks
-- Run it with: sqlite3 -bail DATABASE < SCRIPT

BEGIN;

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
    "C1" TINYINT DEFAULT 200,
    "C2" SMALLINT,
    "C3" INTEGER DEFAULT -2147483648,
    "C4" INTEGER DEFAULT 4,
    "C5" INTEGER,
    "C6" BIGINT,
    "C7" BIGINT DEFAULT -9223372036854775807,
    "C8" DECIMAL(4,2) DEFAULT 99.99,
    "C9" DECIMAL(4,2),
    "C10" DECIMAL(4,2) DEFAULT 99.994999,
    "C11" DECIMAL(4,2),
    "C12" DECIMAL(4,2) DEFAULT 0.9999E2,
    "C13" DECIMAL(2,2),
    "C14" DECIMAL(18,2) DEFAULT 9999999999999999.99,
    "C15" REAL,
    "C16" DOUBLE,
    "C17" BOOLEAN DEFAULT TRUE,
    "C18" DATE DEFAULT CURRENT_DATE,
    "C19" DATE,
    "C20" TIME DEFAULT '08:15:30',
    "C21" TIME,
    "C22" TIMESTAMP DEFAULT '2026-02-28 00:00:00',
    "C23" CHAR(3) DEFAULT '本棚が',
    "C24" CHAR(3),
    "C25" VARCHAR(9) DEFAULT 'it''s',
    "C26" VARCHAR(9) DEFAULT '''it''s''',
    "C27" VARCHAR(9) DEFAULT '\''',
    "C28" VARCHAR(9) DEFAULT ' a ',
    "C29" TEXT DEFAULT 'a',
    "C30" BINARY(2),
    "C31" BINARY(2) DEFAULT x'abcd',
    "C32" BINARY(2) DEFAULT x'abcd',
    "C33" INTEGER,
    "C34" VARCHAR(9),
    "C35" BIGINT DEFAULT +9223372036854775807,
    "C36" BIGINT
);

COMMIT;
