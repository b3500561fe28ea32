-- Demo: the schema for PostgreSQL
-- 4 tables, 1 key, 21 remarks

BEGIN;
SET LOCAL client_encoding = 'UTF8';
SET LOCAL standard_conforming_strings = on;

-- Remark: Empty.OfEmpty: the index is left out, for it has no columns.
CREATE TABLE "Empty" (
);
COMMENT ON TABLE "Empty" IS 'no columns';

-- Remark: Target.Odd: there is no counterpart of the type ?; text stands in its place.
-- Remark: Target.Id: the column takes no Null, for it is in the primary key.
-- Remark: Target.PrimaryKey: PostgreSQL keeps the primary key in ascending order.
-- Remark: Target.NoColumns: the index is left out, for it has no columns.
CREATE TABLE "Target" (
    "Id" integer NOT NULL,
    "Code" varchar(20),
    "Odd" text,
    CONSTRAINT "Target_PrimaryKey" PRIMARY KEY ("Id")
);

-- Remark: Source.Id: the default value "1,5" is left out, for it is no value of INTEGER.
-- Remark: Source.Day: the default value "31.12.2026" is left out, for it is no value of DATE.
-- Remark: Source.Letter: the default value "AB" is left out, for it is no value of CHAR(1).
-- Remark: Source.Flag: the default value "maybe" is left out, for it is no value of BOOLEAN.
-- Remark: Source.Share: the default value "123" is left out, for it is no value of DECIMAL(4,2).
-- Remark: Source.Nr: the default value "1); DROP TABLE "Target"; --" is left out, for it is no value of SMALLINT.
-- Remark: Source.Day: the column takes no Null, for it is in the primary key.
-- Remark: Source.PrimaryKey: PostgreSQL keeps the primary key in ascending order.
-- Remark: Source.OtherTable: the index is left out, for its columns are not in order: one is not there, or stands twice.
-- Remark: Source.Twice: the index is left out, for its columns are not in order: one is not there, or stands twice.
-- Remark: Source.NoPairs: the key is left out, for it joins no columns.
-- Remark: Source.NoTable: the key is left out, for what it joins is not there or stands twice.
-- Remark: Source.NoColumn: the key is left out, for what it joins is not there or stands twice.
-- Remark: Source.NotUnique: the key is left out, for no unique index of Target has exactly the columns that it refers to.
-- Remark: Source.OtherType: the key is left out, for PostgreSQL joins no columns of the types VARCHAR(10) and INTEGER.
-- Remark: Source.ToEmpty: the key is left out, for it joins no columns.
CREATE TABLE "Source" (
    "Id" integer NOT NULL,
    "Target" varchar(10),
    "Day" date NOT NULL,
    "Letter" char(1),
    "Flag" boolean,
    "Share" numeric(4,2),
    "Nr" smallint,
    CONSTRAINT "Source_PrimaryKey" PRIMARY KEY ("Id", "Day"),
    CONSTRAINT "Good" FOREIGN KEY ("Id") REFERENCES "Target" ("Id") ON DELETE CASCADE
);

CREATE TABLE "Wide" (
    "Key" varchar(1000) NOT NULL,
    "A" varchar(16000),
    "B" varchar(8000),
    "Text" text,
    "Limit" numeric(31,31)
);
CREATE UNIQUE INDEX "Longest" ON "Wide" ("Key");
CREATE INDEX "OnText" ON "Wide" ("Text");

COMMIT;
