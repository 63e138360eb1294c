-- The tables of the ERP's session service: who may sign in, with which rights, and what was done.

-- Layout of the database's tables; programs refuse one that they do not know.
CREATE TABLE ses_esquema (
    Version integer NOT NULL
);
INSERT INTO ses_esquema (Version) VALUES (1);

CREATE TABLE ses_empresa (
    Empresa citext NOT NULL,
    Nombre citext NOT NULL,
    PRIMARY KEY (Empresa)
);

-- Clave is an Argon2id hash; an empty one lets nobody in. BloqueadoHasta counts seconds since 1970 (UTC).
CREATE TABLE ses_usuario (
    Usuario citext NOT NULL,
    Nombre citext NOT NULL DEFAULT '',
    Clave text NOT NULL DEFAULT '',
    Fallidos integer NOT NULL DEFAULT 0,
    BloqueadoHasta bigint NOT NULL DEFAULT 0,
    PRIMARY KEY (Usuario)
);

-- Derechos holds the letters R, W, X, D in this order, each replaced by '-' where it is not granted.
CREATE TABLE ses_derecho (
    Usuario citext NOT NULL,
    Programa citext NOT NULL,
    Derechos citext NOT NULL DEFAULT '----',
    PRIMARY KEY (Usuario, Programa)
);

-- The audit trail. Momento is local time, 'yyyy-mm-dd hh:mm:ss.zzz'.
CREATE TABLE ses_auditoria (
    Id bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    Momento text NOT NULL,
    Usuario citext NOT NULL,
    Empresa citext NOT NULL,
    Programa citext NOT NULL,
    Codigo integer NOT NULL,
    Texto text NOT NULL,
    Equipo text NOT NULL DEFAULT ''
);
