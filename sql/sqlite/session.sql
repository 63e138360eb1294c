-- The tables of the ERP's session service: who may sign in, with which rights, and what was done.

-- Layout of the database's tables; programs refuse one that they do not know. The files upgrade-N.sql bring a
-- database from layout N-1 to N.
CREATE TABLE ses_esquema (
    Version INTEGER NOT NULL
);
INSERT INTO ses_esquema (Version) VALUES (2);

CREATE TABLE ses_empresa (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    Nombre TEXT NOT NULL COLLATE ERP_ES,
    PRIMARY KEY (Empresa)
) WITHOUT ROWID;

-- Clave is an Argon2id hash; an empty one lets nobody in. BloqueadoHasta counts seconds since 1970 (UTC).
CREATE TABLE ses_usuario (
    Usuario TEXT NOT NULL COLLATE ERP_ES,
    Nombre TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Clave TEXT NOT NULL DEFAULT '',
    Fallidos INTEGER NOT NULL DEFAULT 0,
    BloqueadoHasta INTEGER NOT NULL DEFAULT 0,
    PRIMARY KEY (Usuario)
) WITHOUT ROWID;

-- Derechos holds the letters R, W, X, D in this order, each replaced by '-' where it is not granted.
CREATE TABLE ses_derecho (
    Usuario TEXT NOT NULL COLLATE ERP_ES,
    Programa TEXT NOT NULL COLLATE ERP_ES,
    Derechos TEXT NOT NULL DEFAULT '----' COLLATE ERP_ES,
    PRIMARY KEY (Usuario, Programa)
) WITHOUT ROWID;

-- The audit trail. Momento is local time, 'yyyy-mm-dd hh:mm:ss.zzz'.
CREATE TABLE ses_auditoria (
    Id INTEGER PRIMARY KEY,
    Momento TEXT NOT NULL,
    Usuario TEXT NOT NULL COLLATE ERP_ES,
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    Programa TEXT NOT NULL COLLATE ERP_ES,
    Codigo INTEGER NOT NULL,
    Texto TEXT NOT NULL,
    Equipo TEXT NOT NULL DEFAULT ''
);
-- The trail is asked for by time, by user and by company.
CREATE INDEX ses_auditoria_momento ON ses_auditoria (Momento);
CREATE INDEX ses_auditoria_usuario ON ses_auditoria (Usuario, Momento);
CREATE INDEX ses_auditoria_empresa ON ses_auditoria (Empresa, Momento);
