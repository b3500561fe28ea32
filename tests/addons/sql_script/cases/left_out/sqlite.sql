-- Demo: the schema for SQLite
-- 3 tables, 2 keys, 18 remarks
-- Run it with: sqlite3 -bail DATABASE < SCRIPT

BEGIN;

-- Remark: Empty: the table is left out, for it has no columns.

-- Remark: Target.Odd: there is no counterpart of the type ?; TEXT stands in its place.
-- Remark: Target.Id: the column takes no Null, for it is in the primary key.
-- Remark: Target.NoColumns: the index is left out, for it has no columns.
CREATE TABLE "Target" (
    "Id" INTEGER NOT NULL CONSTRAINT "PrimaryKey" PRIMARY KEY DESC,
    "Code" VARCHAR(20),
    "Odd" TEXT
);

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
-- Remark: Source.ToEmpty: the key is left out, for what it joins is not there or stands twice.
CREATE TABLE "Source" (
    "Id" INTEGER NOT NULL,
    "Target" VARCHAR(10),
    "Day" DATE NOT NULL,
    "Letter" CHAR(1),
    "Flag" BOOLEAN,
    "Share" DECIMAL(4,2),
    "Nr" SMALLINT,
    CONSTRAINT "PrimaryKey" PRIMARY KEY ("Id", "Day" DESC),
    CONSTRAINT "OtherType" FOREIGN KEY ("Target") REFERENCES "Target" ("Id") ON DELETE RESTRICT,
    CONSTRAINT "Good" FOREIGN KEY ("Id") REFERENCES "Target" ("Id") ON DELETE CASCADE
);

CREATE TABLE "Wide" (
    "Key" VARCHAR(1000) NOT NULL,
    "A" VARCHAR(16000),
    "B" VARCHAR(8000),
    "Text" TEXT,
    "Limit" NUMERIC(31,31)
);
CREATE UNIQUE INDEX "Longest" ON "Wide" ("Key");
CREATE INDEX "OnText" ON "Wide" ("Text");

COMMIT;
