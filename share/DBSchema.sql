-- The template of every schema database: nine tables, the catalogue of SQL types, and no other rows.
--
-- Text compares without regard to letter case within ASCII only; outside ASCII it compares exactly, so that two
-- names that differ only in the case of such a letter are two names. Dates are ISO 8601 text. Booleans are 0 and 1.
-- Identifiers only grow: AUTOINCREMENT keeps the largest one given so far in sqlite_sequence, also after its row is
-- gone. Declared sizes count characters.

PRAGMA encoding = 'UTF-8';
PRAGMA application_id = 0x5453534C; -- "TSSL"
PRAGMA user_version = 1;

BEGIN;

CREATE TABLE Tables (
    TabID INTEGER PRIMARY KEY AUTOINCREMENT,
    TableName TEXT(64) COLLATE NOCASE NOT NULL CHECK (length(TableName) <= 64),
    StorageOption TEXT COLLATE NOCASE,
    Comments TEXT COLLATE NOCASE,
    PrimaryIndexID INTEGER CHECK (typeof(PrimaryIndexID) IN ('integer', 'null')),
    RepObjId TEXT COLLATE NOCASE,
    Created TEXT COLLATE NOCASE,
    CreatedVia TEXT COLLATE NOCASE,
    CVRL TEXT COLLATE NOCASE
);
CREATE UNIQUE INDEX TableName ON Tables (TableName);
CREATE INDEX TablesPrimaryIndex ON Tables (PrimaryIndexID);
CREATE INDEX TablesRepObj ON Tables (RepObjId);

CREATE TABLE Columns (
    ColumnID INTEGER PRIMARY KEY AUTOINCREMENT,
    TabID INTEGER NOT NULL CHECK (typeof(TabID) = 'integer'),
    ColumnName TEXT(64) COLLATE NOCASE NOT NULL CHECK (length(ColumnName) <= 64),
    Position INTEGER NOT NULL CHECK (typeof(Position) = 'integer'),
    TypeID INTEGER NOT NULL CHECK (typeof(TypeID) = 'integer'),
    Precision INTEGER NOT NULL DEFAULT 0 CHECK (typeof(Precision) = 'integer'),
    Scale INTEGER NOT NULL DEFAULT 0 CHECK (typeof(Scale) = 'integer'),
    IsNullable INTEGER NOT NULL DEFAULT 0 CHECK (IsNullable IN (0, 1)),
    Comments TEXT COLLATE NOCASE,
    DefaultValue TEXT COLLATE NOCASE,
    Created TEXT COLLATE NOCASE,
    CreatedVia TEXT COLLATE NOCASE,
    CVRL TEXT COLLATE NOCASE
);
CREATE UNIQUE INDEX TableIDColName ON Columns (TabID, ColumnName);
CREATE INDEX ColumnsPosition ON Columns (TabID, Position);

CREATE TABLE Indices (
    IndexID INTEGER PRIMARY KEY AUTOINCREMENT,
    TabID INTEGER NOT NULL CHECK (typeof(TabID) = 'integer'),
    IndexName TEXT(64) COLLATE NOCASE NOT NULL CHECK (length(IndexName) <= 64),
    [Unique] INTEGER NOT NULL DEFAULT 0 CHECK ([Unique] IN (0, 1)),
    Comment TEXT COLLATE NOCASE DEFAULT NULL,
    CVRL TEXT COLLATE NOCASE
);
CREATE INDEX IndicesName ON Indices (TabID, IndexName);

CREATE TABLE IndexColumns (
    IndexID INTEGER NOT NULL CHECK (typeof(IndexID) = 'integer'),
    ColumnID INTEGER NOT NULL CHECK (typeof(ColumnID) = 'integer'),
    Position INTEGER NOT NULL CHECK (typeof(Position) = 'integer'),
    Direction TEXT(1) COLLATE NOCASE CHECK (Direction IN ('A', 'D')),
    CVRL TEXT COLLATE NOCASE
);
CREATE INDEX IndexColumnsPosition ON IndexColumns (IndexID, Position);
CREATE INDEX IndexColumnsColumn ON IndexColumns (ColumnID);

CREATE TABLE ForeignKeys (
    KeyID INTEGER PRIMARY KEY AUTOINCREMENT,
    TabID INTEGER NOT NULL CHECK (typeof(TabID) = 'integer'),
    RefTabId INTEGER NOT NULL CHECK (typeof(RefTabId) = 'integer'),
    KeyName TEXT(64) COLLATE NOCASE NOT NULL CHECK (length(KeyName) <= 64),
    HowDelete TEXT(1) COLLATE NOCASE CHECK (HowDelete IN ('R', 'C')),
    Comment TEXT COLLATE NOCASE DEFAULT NULL,
    CVRL TEXT COLLATE NOCASE
);
CREATE INDEX ForeignKeysTable ON ForeignKeys (TabID, KeyName);
CREATE INDEX ForeignKeysReferenced ON ForeignKeys (RefTabId, KeyName);

CREATE TABLE ForeignKeyColumns (
    KeyID INTEGER NOT NULL CHECK (typeof(KeyID) = 'integer'),
    ColumnID INTEGER NOT NULL CHECK (typeof(ColumnID) = 'integer'),
    RefColumnID INTEGER NOT NULL CHECK (typeof(RefColumnID) = 'integer'),
    CVRL TEXT COLLATE NOCASE
);
CREATE INDEX ForeignKeyColumnsKey ON ForeignKeyColumns (KeyID);
CREATE INDEX ForeignKeyColumnsColumn ON ForeignKeyColumns (ColumnID);
CREATE INDEX ForeignKeyColumnsReferenced ON ForeignKeyColumns (RefColumnID);

CREATE TABLE SQLTypes (
    TypeID INTEGER PRIMARY KEY AUTOINCREMENT,
    SourceTypeName TEXT COLLATE NOCASE NOT NULL,
    MaxPrecision INTEGER CHECK (typeof(MaxPrecision) IN ('integer', 'null')),
    MaxScale INTEGER CHECK (typeof(MaxScale) IN ('integer', 'null'))
);

CREATE TABLE ProjectSettings (
    PropName TEXT COLLATE NOCASE NOT NULL,
    PropValue TEXT COLLATE NOCASE
);
CREATE UNIQUE INDEX ProjectSettingsName ON ProjectSettings (PropName);

CREATE TABLE Errors (
    TblID INTEGER NOT NULL CHECK (typeof(TblID) = 'integer'),
    KeyID INTEGER NOT NULL CHECK (typeof(KeyID) = 'integer'),
    ColumnID INTEGER NOT NULL CHECK (typeof(ColumnID) = 'integer'),
    Message TEXT COLLATE NOCASE
);
CREATE INDEX ErrorsPlace ON Errors (TblID, KeyID, ColumnID);

INSERT INTO SQLTypes (TypeID, SourceTypeName, MaxPrecision, MaxScale) VALUES
    (1, 'CHAR', 32767, NULL),
    (2, 'NUMERIC', 31, 31),
    (3, 'DECIMAL', 31, 31),
    (4, 'INTEGER', NULL, 9),
    (5, 'SMALLINT', NULL, 4),
    (6, 'FLOAT', 53, NULL),
    (7, 'REAL', NULL, NULL),
    (8, 'DOUBLE', NULL, NULL),
    (9, 'DATE', NULL, NULL),
    (10, 'TIME', NULL, NULL),
    (11, 'TIMESTAMP', NULL, NULL),
    (12, 'VARCHAR', 32767, NULL),
    (13, 'LONGVARCHAR', NULL, NULL),
    (14, 'BIGINT', NULL, NULL),
    (15, 'TINYINT', NULL, NULL),
    (16, 'BOOLEAN', NULL, NULL),
    (17, 'BINARY', 32767, NULL),
    (18, 'VARBINARY', 32767, NULL),
    (19, 'LONGVARBINARY', NULL, NULL);

-- A new row's identifier is reserved here before the row is stored, so every table has its entry from the start.
INSERT INTO sqlite_sequence (name, seq) VALUES ('Tables', 0), ('Columns', 0), ('Indices', 0), ('ForeignKeys', 0);

COMMIT;
