-- The columns of the indexes and foreign keys that sample.jsonl adds; identifiers count from 1 in its order.

begin;

insert into IndexColumns(IndexID,ColumnID,Position,Direction) values
    -- Language: PrimaryKey
    (1,1,1,'A'),
    -- Language: UX_Language_EnglishName
    (2,2,1,'A'),
    -- Currency: PrimaryKey
    (3,6,1,'A'),
    -- Country: PrimaryKey
    (4,11,1,'A'),
    -- Country: UX_Country_EnglishName
    (5,12,1,'A'),
    -- Office: PrimaryKey
    (6,17,1,'A'),
    -- Office: UX_Office_OfficeName
    (7,19,1,'A'),
    -- Employee: PrimaryKey
    (8,25,1,'A'),
    -- Employee: UX_Employee_Email
    (9,31,1,'A'),
    -- Employee: IX_Employee_Name
    (10,28,1,'A'),
    (10,29,2,'A'),
    -- Contributor: PrimaryKey
    (11,35,1,'A'),
    -- Contributor: IX_Contributor_LegalName
    (12,36,1,'A'),
    -- ContributorName: PrimaryKey
    (13,43,1,'A'),
    (13,44,2,'A'),
    -- ContributorName: IX_ContributorName_SortName
    (14,44,1,'A'),
    (14,46,2,'A'),
    -- Series: PrimaryKey
    (15,48,1,'A'),
    -- Series: UX_Series_SeriesTitle
    (16,49,1,'A'),
    -- Work: PrimaryKey
    (17,53,1,'A'),
    -- Work: IX_Work_OriginalTitle
    (18,54,1,'A'),
    -- Work: IX_Work_Series
    (19,57,1,'A'),
    (19,58,2,'A'),
    -- WorkContributor: PrimaryKey
    (20,64,1,'A'),
    (20,65,2,'A'),
    (20,66,3,'A'),
    -- WorkContributor: IX_WorkContributor_Contributor
    (21,65,1,'A'),
    -- PartnerHouse: PrimaryKey
    (22,69,1,'A'),
    -- PartnerHouse: UX_PartnerHouse_HouseName
    (23,70,1,'A'),
    -- RightsContract: PrimaryKey
    (24,77,1,'A'),
    -- RightsContract: UX_RightsContract_Number
    (25,78,1,'A'),
    -- RightsContract: IX_RightsContract_Expiry
    (26,84,1,'A'),
    -- RightsContract: IX_RightsContract_Work
    (27,79,1,'A'),
    (27,82,2,'A'),
    -- ContractTerritory: PrimaryKey
    (28,89,1,'A'),
    (28,90,2,'A'),
    -- RoyaltyTerm: PrimaryKey
    (29,93,1,'A'),
    (29,94,2,'A'),
    -- RoyaltyStatement: PrimaryKey
    (30,98,1,'A'),
    -- RoyaltyStatement: UX_RoyaltyStatement_Period
    (31,99,1,'A'),
    (31,100,2,'A'),
    -- Translation: PrimaryKey
    (32,107,1,'A'),
    -- Translation: UX_Translation_Work
    (33,108,1,'A'),
    (33,110,2,'A'),
    -- Translation: IX_Translation_DueOn
    (34,113,1,'A'),
    -- TranslationStage: PrimaryKey
    (35,117,1,'A'),
    (35,118,2,'A'),
    -- Glossary: PrimaryKey
    (36,125,1,'A'),
    -- Glossary: UX_Glossary_Name
    (37,126,1,'A'),
    (37,129,2,'A'),
    -- GlossaryTerm: PrimaryKey
    (38,131,1,'A'),
    (38,132,2,'A'),
    -- GlossaryTerm: UX_GlossaryTerm_Source
    (39,131,1,'A'),
    (39,133,2,'A'),
    -- Edition: PrimaryKey
    (40,138,1,'A'),
    -- Edition: UX_Edition_Isbn
    (41,141,1,'A'),
    -- Edition: IX_Edition_PublishedOn
    (42,143,1,'A'),
    -- EditionPrice: PrimaryKey
    (43,150,1,'A'),
    (43,151,2,'A'),
    (43,152,3,'A'),
    -- Printer: PrimaryKey
    (44,155,1,'A'),
    -- Printer: UX_Printer_PrinterName
    (45,156,1,'A'),
    -- PrintRun: PrimaryKey
    (46,161,1,'A'),
    (46,162,2,'A'),
    -- PrintRun: IX_PrintRun_Ordered
    (47,168,1,'A'),
    -- Warehouse: PrimaryKey
    (48,170,1,'A'),
    -- Warehouse: UX_Warehouse_Name
    (49,171,1,'A'),
    -- StockBalance: PrimaryKey
    (50,178,1,'A'),
    (50,179,2,'A'),
    -- StockMovement: PrimaryKey
    (51,183,1,'A'),
    -- StockMovement: IX_StockMovement_Balance
    (52,184,1,'A'),
    (52,185,2,'A'),
    (52,187,3,'D'),
    -- StockMovement: IX_StockMovement_Edition
    (53,185,1,'A'),
    (53,186,2,'A');

insert into ForeignKeyColumns(KeyID,ColumnID,RefColumnID) values
    -- FK_Country_Currency
    (1,14,6),
    -- FK_Office_Country
    (2,18,11),
    -- FK_Employee_Office
    (3,26,17),
    -- FK_Employee_Manager
    (4,27,25),
    -- FK_Contributor_Country
    (5,37,11),
    -- FK_ContributorName_Contributor
    (6,43,35),
    -- FK_ContributorName_Language
    (7,44,1),
    -- FK_Series_Editor
    (8,50,25),
    -- FK_Work_Language
    (9,56,1),
    -- FK_Work_Series
    (10,57,48),
    -- FK_WorkContributor_Work
    (11,64,53),
    -- FK_WorkContributor_Contributor
    (12,65,35),
    -- FK_PartnerHouse_Country
    (13,71,11),
    -- FK_RightsContract_Work
    (14,79,53),
    -- FK_RightsContract_Licensor
    (15,80,69),
    -- FK_RightsContract_Licensee
    (16,81,69),
    -- FK_RightsContract_Language
    (17,82,1),
    -- FK_RightsContract_Currency
    (18,86,6),
    -- FK_ContractTerritory_Contract
    (19,89,77),
    -- FK_ContractTerritory_Country
    (20,90,11),
    -- FK_RoyaltyTerm_Contract
    (21,93,77),
    -- FK_RoyaltyStatement_Contract
    (22,99,77),
    -- FK_RoyaltyStatement_IssuedBy
    (23,106,25),
    -- FK_Translation_Work
    (24,108,53),
    -- FK_Translation_Source
    (25,109,1),
    -- FK_Translation_Target
    (26,110,1),
    -- FK_Translation_Contract
    (27,111,77),
    -- FK_TranslationStage_Translation
    (28,117,107),
    -- FK_TranslationStage_Contributor
    (29,120,35),
    -- FK_TranslationStage_Employee
    (30,121,25),
    -- FK_Glossary_Series
    (31,127,48),
    -- FK_Glossary_Source
    (32,128,1),
    -- FK_Glossary_Target
    (33,129,1),
    -- FK_GlossaryTerm_Glossary
    (34,131,125),
    -- FK_GlossaryTerm_DecidedBy
    (35,137,25),
    -- FK_Edition_Work
    (36,139,53),
    -- FK_Edition_Translation
    (37,140,107),
    -- FK_EditionPrice_Edition
    (38,150,138),
    -- FK_EditionPrice_Currency
    (39,151,6),
    -- FK_Printer_Country
    (40,157,11),
    -- FK_PrintRun_Edition
    (41,161,138),
    -- FK_PrintRun_Printer
    (42,163,155),
    -- FK_PrintRun_Currency
    (43,166,6),
    -- FK_Warehouse_Office
    (44,172,17),
    -- FK_StockBalance_Warehouse
    (45,178,170),
    -- FK_StockBalance_Edition
    (46,179,138),
    -- FK_StockMovement_StockBalance
    (47,184,178),
    (47,185,179),
    -- FK_StockMovement_PrintRun
    (48,185,161),
    (48,186,162),
    -- FK_StockMovement_Employee
    (49,190,25);

commit;
