-- Tables of the GST side. The column order is binding: inserts name no columns. Columns are wider than any field of
-- the screens plus one, so that nothing typed is ever cut. Ids are allotted by the program, hence no auto-increment.

CREATE TABLE IF NOT EXISTS Ledgora_Schema (
  Id int NOT NULL PRIMARY KEY,
  Version int NOT NULL
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

-- The kind of host whose office this is: one row. A table of its own, since a clerk's rights make tables but change none.
CREATE TABLE IF NOT EXISTS Ledgora_Host (
  Id int NOT NULL PRIMARY KEY,
  Code varchar(1) NOT NULL
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_FirmMas (
  FirmSrNo int NOT NULL PRIMARY KEY,
  Nm varchar(300), Desig varchar(150), Addr1 varchar(200), Addr2 varchar(200), City varchar(150), PinCode varchar(20),
  StateNm varchar(100),
  PhNoO1 varchar(50), PhNoO2 varchar(50), PhNoR1 varchar(50), PhNoR2 varchar(50), FaxNo varchar(50), MobNo varchar(50),
  Email varchar(500), WebURL varchar(500), PAN varchar(20), GSTIN varchar(30),
  BankAcName varchar(300), BankName varchar(300), BankBrAdd varchar(300), BankAcNo varchar(100), BankIFSC varchar(20),
  PayComments varchar(300), SignName varchar(150), SignDesig varchar(100), Pass varchar(500)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_OthCl (
  OthClSrNo int NOT NULL PRIMARY KEY,
  OthClCode varchar(50),
  Nm varchar(150), h_no varchar(100), h_nm varchar(100), street varchar(100), area varchar(100), city varchar(100),
  pincode varchar(20), StateNm varchar(100), PhNo1 varchar(50), PhNo2 varchar(50), FaxNo varchar(50), MobNo varchar(50),
  email varchar(500), PAN varchar(20), GSTIN varchar(30),
  KEY OthClCode (OthClCode)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_Series (
  SeriesSrNo int NOT NULL PRIMARY KEY,
  BR varchar(1), FY int, Series varchar(100), SP varchar(1)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_BillM (
  BillSrNo int NOT NULL PRIMARY KEY,
  FirmId int, FYr int, Code_No varchar(60), BillSerId int, BillNo int, BillDt datetime, PlaceOfServ varchar(100),
  AppTaxType varchar(10), Narr text,
  KEY FirmYear (FirmId, FYr), KEY Code_No (Code_No)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_BillD (
  BillId int, SrNo int, part text, SAC varchar(20), YrType varchar(10), Yr int,
  ServAmt double, DiscAmt double, TaxServAmt double, FlagEdit varchar(1),
  RtCGST double, CGST double, RtSGST double, SGST double, RtIGST double, IGST double, TotalAmt double,
  KEY BillLine (BillId, SrNo), KEY SAC (SAC)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_RecpM (
  RecpSrNo int NOT NULL PRIMARY KEY,
  FirmId int, FYr int, Code_No varchar(60), RecpSerId int, RecpNo int, RecpDt datetime, Cash double, PayMode varchar(10),
  OthAmt double, BankNm varchar(300), BankBr varchar(300), ChqNo varchar(100), ChqDt varchar(20), Narr text,
  KEY FirmYear (FirmId, FYr), KEY Code_No (Code_No)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_RecpD (
  RecpId int, SrNo int, BillId int, Amount double, Discount double, TDS double,
  KEY RecpLine (RecpId, SrNo), KEY BillId (BillId)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS GST_ClRegNo (
  Code_No varchar(60), GSTIN varchar(30), Remarks varchar(100),
  KEY Code_No (Code_No)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;
