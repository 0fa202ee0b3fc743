-- The program's database: three reference tables, filled from the CSV files beside this one, and two
-- work tables that the program refills with every schedule it shows.

-- Single life expectancy (from age 69 down) and minimum distribution (from age 70 up), oldest first.
CREATE TABLE lifexp (age INTEGER NOT NULL UNIQUE, multiple REAL NOT NULL);

CREATE TABLE joinlife (
    PartAge INTEGER NOT NULL,
    BeneAge INTEGER NOT NULL,
    LifeAge REAL NOT NULL,
    UNIQUE (PartAge, BeneAge)
);

CREATE TABLE rate (rateid INTEGER PRIMARY KEY, rate REAL NOT NULL, ratemark TEXT NOT NULL);

CREATE TABLE schedule (
    number INTEGER NOT NULL,
    remaining INTEGER NOT NULL,
    startbalance REAL NOT NULL,
    payment REAL NOT NULL,
    remainbalance REAL NOT NULL,
    Month TEXT NOT NULL,
    Year TEXT NOT NULL
);

-- Always exactly one row: the heading of the schedule.
CREATE TABLE distrib (
    dtitle TEXT,
    dsubtitle TEXT,
    curvalue REAL,
    startvalue REAL,
    frstdate TEXT,
    scnddate TEXT,
    scndvalue REAL,
    partial REAL,
    payments INTEGER,
    fixamount REAL,
    paylength INTEGER,
    totalvalue TEXT,
    rate TEXT,
    fee TEXT
);
INSERT INTO distrib DEFAULT VALUES;
