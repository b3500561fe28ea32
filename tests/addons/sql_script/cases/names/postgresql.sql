-- Demo: the schema for PostgreSQL
-- 8 tables, 3 keys, 4 remarks

BEGIN;
SET LOCAL client_encoding = 'UTF8';
SET LOCAL standard_conforming_strings = on;

CREATE TABLE "select" (
    -- Storage: heap
    -- fillfactor 70

    "group" integer NOT NULL,
    "from" varchar(30),
    "Größe" numeric(10,2),
    CONSTRAINT "select_PrimaryKey" PRIMARY KEY ("group")
);
CREATE INDEX "select_ByName" ON "select" ("from", "Größe" DESC);
CREATE INDEX "Only Here" ON "select" ("from" DESC);
COMMENT ON TABLE "select" IS 'It''s "the" table; `所有` -- not';
COMMENT ON COLUMN "select"."group" IS 'the "group"';
COMMENT ON COLUMN "select"."Größe" IS 'größer als 0';
COMMENT ON INDEX "select_PrimaryKey" IS 'of ''select''';

CREATE TABLE "Mixed Case $1" (
    "user id" integer NOT NULL,
    "order#" char(8) NOT NULL,
    CONSTRAINT "Mixed Case $1_PrimaryKey" PRIMARY KEY ("user id"),
    CONSTRAINT "references" FOREIGN KEY ("user id") REFERENCES "select" ("group") ON DELETE CASCADE,
    CONSTRAINT "ByName" FOREIGN KEY ("user id") REFERENCES "Mixed Case $1" ("user id") ON DELETE RESTRICT
);
CREATE UNIQUE INDEX "Mixed Case $1_BYNAME" ON "Mixed Case $1" ("order#" DESC);
CREATE INDEX "Mixed Case $1_ORDERS" ON "Mixed Case $1" ("order#");
COMMENT ON INDEX "Mixed Case $1_BYNAME" IS 'twice in the schema';
COMMENT ON INDEX "Mixed Case $1_ORDERS" IS 'as a table is called';
COMMENT ON CONSTRAINT "references" ON "Mixed Case $1" IS 'goes with
the "select"';

-- Remark: 注文明細テーブル注文明細テーブル注文明細テーブル: PostgreSQL does not take the name, which becomes 注文明細テーブル注文明細テーブル注文_f0b9414f.
CREATE TABLE "注文明細テーブル注文明細テーブル注文_f0b9414f" (
    "番号" bigint NOT NULL,
    CONSTRAINT "注文明細テーブル注文明細テーブル注文_5c176ba5" PRIMARY KEY ("番号")
);
COMMENT ON TABLE "注文明細テーブル注文明細テーブル注文_f0b9414f" IS '長い名前';
COMMENT ON COLUMN "注文明細テーブル注文明細テーブル注文_f0b9414f"."番号" IS '注文の番号';

CREATE TABLE "sqlite_master" (
    "id" smallint NOT NULL,
    CONSTRAINT "sqlite_master_PrimaryKey" PRIMARY KEY ("id")
);

-- Remark: Orders.ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKL: PostgreSQL does not take the name, which becomes ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZAB_1fd65729.
CREATE TABLE "Orders" (
    "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZAB_1fd65729" integer,
    CONSTRAINT "references" FOREIGN KEY ("ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZAB_1fd65729") REFERENCES "select" ("group") ON DELETE RESTRICT
);
CREATE INDEX "primary" ON "Orders" ("ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZAB_1fd65729");

CREATE TABLE "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" (
    "A" integer
);
CREATE INDEX "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx_d665e766" ON "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" ("A");

-- Remark: xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx: PostgreSQL does not take the name, which becomes xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx_d19b1ac5.
CREATE TABLE "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx_d19b1ac5" (
    "A" integer
);
CREATE INDEX "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx_860f5798" ON "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx_d19b1ac5" ("A");

-- Remark: 注文明細テーブル注文明細テーブル注文明細テーブル2: PostgreSQL does not take the name, which becomes 注文明細テーブル注文明細テーブル注文_70a217c7.
CREATE TABLE "注文明細テーブル注文明細テーブル注文_70a217c7" (
    "A" integer
);
CREATE INDEX "注文明細テーブル注文明細テーブル注文_068fc1fe" ON "注文明細テーブル注文明細テーブル注文_70a217c7" ("A");

COMMIT;
