-- The tables of the ERP's session service: who may sign in, with which rights, and what was done.

-- Layout of the database's tables; programs refuse one that they do not know. The files upgrade-N.sql bring a
-- database from layout N-1 to N.
CREATE TABLE ses_esquema (
    Version int NOT NULL
);
INSERT INTO ses_esquema (Version) VALUES (2);

CREATE TABLE ses_empresa (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Nombre varchar(100) COLLATE Modern_Spanish_CI_AS NOT NULL,
    PRIMARY KEY (Empresa)
);

-- Clave is an Argon2id hash; an empty one lets nobody in. BloqueadoHasta counts seconds since 1970 (UTC).
CREATE TABLE ses_usuario (
    Usuario varchar(128) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Nombre varchar(100) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Clave varchar(255) NOT NULL DEFAULT '',
    Fallidos int NOT NULL DEFAULT 0,
    BloqueadoHasta bigint NOT NULL DEFAULT 0,
    PRIMARY KEY (Usuario)
);

-- Derechos holds the letters R, W, X, D in this order, each replaced by '-' where it is not granted.
CREATE TABLE ses_derecho (
    Usuario varchar(128) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Programa varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Derechos varchar(4) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '----',
    PRIMARY KEY (Usuario, Programa)
);

-- The audit trail. Momento is local time, 'yyyy-mm-dd hh:mm:ss.zzz'.
CREATE TABLE ses_auditoria (
    Id bigint IDENTITY(1, 1) NOT NULL PRIMARY KEY,
    Momento varchar(23) NOT NULL,
    Usuario varchar(128) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Programa varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Codigo int NOT NULL,
    Texto varchar(max) NOT NULL,
    Equipo varchar(255) NOT NULL DEFAULT ''
);
-- The trail is asked for by time, by user and by company.
CREATE INDEX ses_auditoria_momento ON ses_auditoria (Momento);
CREATE INDEX ses_auditoria_usuario ON ses_auditoria (Usuario, Momento);
CREATE INDEX ses_auditoria_empresa ON ses_auditoria (Empresa, Momento);
