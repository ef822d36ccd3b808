-- The client tables of a host of kind "C": companies and limited-liability partnerships.

CREATE TABLE IF NOT EXISTS Comp_Master (
  CompSrNo int NOT NULL PRIMARY KEY,
  Code varchar(50), Nm varchar(300), PAN varchar(20), Flat varchar(100), Building varchar(100), street varchar(100),
  area varchar(100), city varchar(100), State varchar(100), PIN varchar(20),
  Phone varchar(50), Fax varchar(50), Mob varchar(50), Email varchar(500),
  KEY Code (Code)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS LLP_Master (
  Code varchar(50), Nm varchar(300), PAN varchar(20), Line1 varchar(200), Line2 varchar(200), city varchar(100),
  State varchar(100), PIN varchar(20),
  Phone varchar(50), Fax varchar(50), Mob varchar(50), Email varchar(500),
  KEY Code (Code)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS ChangeAddr (
  CompSrNo int, session varchar(10), ChDate datetime, Flat varchar(100), Building varchar(100), street varchar(100),
  area varchar(100), city varchar(100), State varchar(100), PIN varchar(20),
  KEY CompSrNo (CompSrNo)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS ChangeName (
  CompSrNo int, session varchar(10), ChDate datetime, NewName varchar(300),
  KEY CompSrNo (CompSrNo)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;
