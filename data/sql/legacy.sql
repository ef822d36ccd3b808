-- Tables of the older, service-tax side. The column order is binding where inserts name no columns. The GST side reads
-- Table3 and biller once, to take over companies and other clients.

CREATE TABLE IF NOT EXISTS Table3 (
  Name varchar(100), address varchar(255), area varchar(100), city varchar(100), pincode varchar(20),
  designation varchar(100), pnoo1 varchar(50), pnoo2 varchar(50), pnor1 varchar(50), pnor2 varchar(50), No varchar(50),
  pass varchar(100), AGBNO varchar(10), AGRNO varchar(10), CNO varchar(50), PAOTP varchar(50), A varchar(50),
  SrNo int NOT NULL AUTO_INCREMENT PRIMARY KEY,
  StRegNo varchar(255) DEFAULT '', MobNo varchar(20) DEFAULT '', PAN varchar(10) DEFAULT ''
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS biller (
  code_no varchar(50), nm varchar(100), h_no varchar(50), h_nm varchar(50), street varchar(50), area varchar(50),
  city varchar(50), State varchar(50), PIN varchar(20), ph1 varchar(50), ph2 varchar(50), fax varchar(50),
  mob varchar(50), email varchar(255),
  KEY code_no (code_no)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS SRate (
  Frm varchar(10), Rate double, Yr int, Mon int, Dt int, ECess double, ECess1 double, SBC double DEFAULT 0,
  KKC double DEFAULT 0
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Bill_Main (
  BillCompNm varchar(100), FYr int, Code_No varchar(60), BillSrId int, BillNo int, BillDt datetime, Narr text,
  BillId int NOT NULL PRIMARY KEY, ConsCalc varchar(2) DEFAULT '',
  KEY CompanyYear (BillCompNm, FYr), KEY Code_No (Code_No)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Bill_Det (
  BillId int, SrNo int, part text, Yr varchar(10), Typ int, Amount double, STaxApp int,
  KEY BillLine (BillId, SrNo)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Recp_Main (
  RecpCompNm varchar(100), FYr int, Code_No varchar(60), RecpSrId int, RecpNo int, RecpDt datetime, CASH double,
  PayMode varchar(10), OthAmt double, BankNm varchar(300), BankBr varchar(300), ChqNo varchar(100), ChqDt varchar(20),
  Narr text, RecpId int NOT NULL PRIMARY KEY,
  KEY CompanyYear (RecpCompNm, FYr), KEY Code_No (Code_No)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Recp_Det (
  RecpId int, SrNo int, BillId int, Amount double, DISCOUNT double, TDS double,
  KEY RecpLine (RecpId, SrNo), KEY BillId (BillId)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Bill_OpBal (
  CompNm varchar(100), Code_No varchar(60), asondt varchar(20), Amount double, Amount1 double, SVTAmt double,
  KEY CompanyClient (CompNm, Code_No)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Bill_Se (
  Num int, Series varchar(100), B_R varchar(1), Yr int, S_P varchar(1)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Bill_Type (
  SrNo int, Description varchar(150), STaxApp int
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;
