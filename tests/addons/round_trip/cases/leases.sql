-- A made-up schema as a server program grows it over the years: names in one case and quoted where they are words of
-- SQL, keys to tables made later, in circles and to themselves, keys to what is unique but no primary key, the same
-- index name in spirit on many tables, names of the greatest length, defaults of every kind.
CREATE TABLE "order" (
  "select" INTEGER NOT NULL,
  "user" VARCHAR(64) NOT NULL DEFAULT 'nobody',
  "table" TEXT DEFAULT 'it''s "so"; -- no comment',
  "parent" INTEGER CONSTRAINT "order_parent" REFERENCES "order" ("select") ON DELETE CASCADE,
  "made" TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP,
  "day" DATE DEFAULT '2026-01-31',
  "hour" TIME,
  "rate" DECIMAL(10,4) DEFAULT 1.5,
  "level" TINYINT NOT NULL DEFAULT -1,
  "is_open" BOOLEAN NOT NULL DEFAULT true,
  CONSTRAINT "order_pkey" PRIMARY KEY ("select")
);
CREATE UNIQUE INDEX "order_user_made" ON "order" ("user", "made" DESC);
CREATE INDEX "order_day" ON "order" ("day" DESC);
CREATE TABLE "line" (
  "order" INTEGER NOT NULL,
  "number" SMALLINT NOT NULL,
  "lease" BIGINT,
  "scope" VARCHAR(128),
  "address" BINARY(16),
  "factor" FLOAT(24) DEFAULT 0,
  "share" DOUBLE,
  "small" REAL,
  "blob" BLOB DEFAULT x'CAFE',
  "empty" VARCHAR(9) DEFAULT '',
  "null" VARCHAR(9) DEFAULT 'null',
  "quoted" VARCHAR(9) DEFAULT '"a"''',
  "apart" VARCHAR(9) DEFAULT '''a''',
  "code" CHAR(3) NOT NULL DEFAULT '',
  CONSTRAINT "line_pkey" PRIMARY KEY ("number", "order"),
  CONSTRAINT "a_name_of_sixty_three_letters_that_is_as_long_as_a_server_takes" FOREIGN KEY ("order")
    REFERENCES "order" ("select") ON DELETE CASCADE,
  CONSTRAINT "line_lease" FOREIGN KEY ("lease", "scope") REFERENCES "lease" ("id", "scope") ON DELETE RESTRICT
);
CREATE INDEX "line_lease" ON "line" ("lease", "scope");
CREATE TABLE "lease" (
  "id" BIGINT NOT NULL,
  "scope" VARCHAR(128) NOT NULL,
  "number" SMALLINT,
  "order" INTEGER,
  "CamelCase" NUMERIC(31,31),
  CONSTRAINT "lease_line" FOREIGN KEY ("number", "order") REFERENCES "line" ("number", "order"),
  CONSTRAINT "lease_scope" FOREIGN KEY ("scope") REFERENCES "scope" ("name") ON DELETE CASCADE
);
CREATE UNIQUE INDEX "lease_id_scope_key" ON "lease" ("id", "scope");
CREATE INDEX "lease_scope_idx" ON "lease" ("scope");
CREATE TABLE "scope" (
  "name" VARCHAR(128) NOT NULL PRIMARY KEY,
  "note" LONGVARCHAR
);
CREATE TABLE "no_key" ("only" INTEGER);
