-- Demo: the schema for PostgreSQL
-- 5 tables, 6 keys

BEGIN;
SET LOCAL client_encoding = 'UTF8';
SET LOCAL standard_conforming_strings = on;

CREATE TABLE "C" (
    "C1" integer NOT NULL,
    "C2" varchar(8) NOT NULL,
    "C3" integer,
    CONSTRAINT "C_PrimaryKey" PRIMARY KEY ("C2", "C1")
);
CREATE UNIQUE INDEX "C_Number" ON "C" ("C1");
COMMENT ON INDEX "C_Number" IS 'for A';

CREATE TABLE "B" (
    "B1" integer NOT NULL,
    "B2" integer,
    CONSTRAINT "B_PrimaryKey" PRIMARY KEY ("B1"),
    CONSTRAINT "B_C" FOREIGN KEY ("B2") REFERENCES "C" ("C1") ON DELETE CASCADE
);
COMMENT ON CONSTRAINT "B_C" ON "B" IS 'goes on';

CREATE TABLE "A" (
    "A1" integer NOT NULL,
    "A2" integer,
    CONSTRAINT "A_PrimaryKey" PRIMARY KEY ("A1"),
    CONSTRAINT "A_B" FOREIGN KEY ("A2") REFERENCES "B" ("B1") ON DELETE RESTRICT
);
COMMENT ON CONSTRAINT "A_B" ON "A" IS 'the circle begins';

CREATE TABLE "D" (
    "D1" integer NOT NULL,
    "D2" char(4) NOT NULL,
    "D3" integer,
    "D4" char(4),
    CONSTRAINT "D_PrimaryKey" PRIMARY KEY ("D1"),
    CONSTRAINT "D_Parent" FOREIGN KEY ("D3") REFERENCES "D" ("D1") ON DELETE RESTRICT
);
CREATE UNIQUE INDEX "D_Code" ON "D" ("D2");

CREATE TABLE "E" (
    "E1" varchar(8),
    "E2" integer,
    CONSTRAINT "E_C" FOREIGN KEY ("E1", "E2") REFERENCES "C" ("C2", "C1") ON DELETE CASCADE
);

ALTER TABLE "C" ADD CONSTRAINT "C_A" FOREIGN KEY ("C3") REFERENCES "A" ("A1") ON DELETE RESTRICT;
COMMENT ON CONSTRAINT "C_A" ON "C" IS 'and ends';
ALTER TABLE "D" ADD CONSTRAINT "D_Other" FOREIGN KEY ("D4") REFERENCES "D" ("D2") ON DELETE CASCADE;
COMMENT ON CONSTRAINT "D_Other" ON "D" IS 'by the code';

COMMIT;
