-- The client tables of a host of kind "G": individuals with their offices, other clients, groups. Columns beyond those
-- the directory needs (Phone, Fax, Mob, Email) are read by reports where present.

CREATE TABLE IF NOT EXISTS Owner1 (
  Code varchar(50) NOT NULL PRIMARY KEY,
  F_nm varchar(150), M_nm varchar(150), l_nm varchar(150), h_no varchar(100), h_nm varchar(100), street varchar(100),
  area varchar(100), city varchar(100), State varchar(100), PIN varchar(20), PAN varchar(20), Code_No varchar(50),
  Phone varchar(50), Fax varchar(50), Mob varchar(50), Email varchar(500)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Main_Info1 (
  Code_No varchar(50) NOT NULL PRIMARY KEY,
  Nm varchar(300), h_no varchar(100), h_nm varchar(100), street varchar(100), area varchar(100), city varchar(100),
  State varchar(100), PIN varchar(20), PAN varchar(20),
  Phone varchar(50), Fax varchar(50), Mob varchar(50), Email varchar(500)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS off_info (
  code_no varchar(50),
  Nm varchar(300), h_no varchar(100), h_nm varchar(100), street varchar(100), area varchar(100), city varchar(100),
  State varchar(100), PIN varchar(20),
  KEY code_no (code_no)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

-- Which address is the communication address in an assessment year: AddO 1 the office, else the residence.
CREATE TABLE IF NOT EXISTS new_Tab (
  code_no varchar(60), ass_year varchar(10), AddO tinyint,
  KEY code_no (code_no, ass_year)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

CREATE TABLE IF NOT EXISTS Grp_M (
  Code_No varchar(50) NOT NULL PRIMARY KEY,
  Nm varchar(150)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;

-- Members of a group: the group's code and the client's.
CREATE TABLE IF NOT EXISTS Grp_Trans (
  Code_no varchar(50), C_code varchar(60),
  KEY Code_no (Code_no), KEY C_code (C_code)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;
