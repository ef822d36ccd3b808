-- The client table of a host of kind "T".

CREATE TABLE IF NOT EXISTS Main_Info (
  Code_No varchar(50) NOT NULL PRIMARY KEY,
  Name varchar(300), PANNo varchar(20), Flat varchar(100), Building varchar(100), street varchar(100),
  area varchar(100), city varchar(100), State varchar(100), PIN varchar(20),
  Phone varchar(50), Fax varchar(50), Mob varchar(50), Email varchar(500)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_520_ci;
