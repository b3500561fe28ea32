-- Demo: the schema for SQLite
-- 8 tables, 3 keys, 1 remark
-- Run it with: sqlite3 -bail DATABASE < SCRIPT

BEGIN;

CREATE TABLE "select" (
    -- It's "the" table; `所有` -- not
    -- Storage: heap
    -- fillfactor 70

    -- the "group"
    "group" INTEGER NOT NULL,
    "from" VARCHAR(30),
    -- größer als 0
    "Größe" DECIMAL(10,2),
    -- of 'select'
    CONSTRAINT "PrimaryKey" PRIMARY KEY ("group")
);
CREATE INDEX "select_ByName" ON "select" ("from", "Größe" DESC);
CREATE INDEX "Only Here" ON "select" ("from" DESC);

CREATE TABLE "Mixed Case $1" (
    "user id" INTEGER NOT NULL,
    "order#" CHAR(8) NOT NULL,
    CONSTRAINT "PrimaryKey" PRIMARY KEY ("user id"),
    -- goes with
    -- the "select"
    CONSTRAINT "references" FOREIGN KEY ("user id") REFERENCES "select" ("group") ON DELETE CASCADE,
    CONSTRAINT "ByName" FOREIGN KEY ("user id") REFERENCES "Mixed Case $1" ("user id") ON DELETE RESTRICT
);
-- twice in the schema
CREATE UNIQUE INDEX "Mixed Case $1_BYNAME" ON "Mixed Case $1" ("order#" DESC);
-- as a table is called
CREATE INDEX "Mixed Case $1_ORDERS" ON "Mixed Case $1" ("order#");

CREATE TABLE "注文明細テーブル注文明細テーブル注文明細テーブル" (
    -- 長い名前

    -- 注文の番号
    "番号" BIGINT NOT NULL,
    CONSTRAINT "PrimaryKey" PRIMARY KEY ("番号")
);

-- Remark: sqlite_master: SQLite does not take the name, which becomes T_sqlite_master.
CREATE TABLE "T_sqlite_master" (
    "id" SMALLINT NOT NULL,
    CONSTRAINT "PrimaryKey" PRIMARY KEY ("id")
);

CREATE TABLE "Orders" (
    "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKL" INTEGER,
    CONSTRAINT "references" FOREIGN KEY ("ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKL") REFERENCES "select" ("group") ON DELETE RESTRICT
);
CREATE INDEX "primary" ON "Orders" ("ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKL");

CREATE TABLE "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" (
    "A" INTEGER
);
CREATE INDEX "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx_注文明細テーブル注文明細テーブル注文明細テーブル" ON "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" ("A");

CREATE TABLE "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" (
    "A" INTEGER
);
CREATE INDEX "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx_注文明細テーブル注文明細テーブル注文明細テーブル" ON "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" ("A");

CREATE TABLE "注文明細テーブル注文明細テーブル注文明細テーブル2" (
    "A" INTEGER
);
CREATE INDEX "注文明細テーブル注文明細テーブル注文明細テーブル2_注文明細テーブル注文明細テーブル注文明細テーブル" ON "注文明細テーブル注文明細テーブル注文明細テーブル2" ("A");

COMMIT;
