-- Layout 2: the audit trail is asked for by time, by user and by company.
CREATE INDEX ses_auditoria_momento ON ses_auditoria (Momento);
CREATE INDEX ses_auditoria_usuario ON ses_auditoria (Usuario, Momento);
CREATE INDEX ses_auditoria_empresa ON ses_auditoria (Empresa, Momento);
UPDATE ses_esquema SET Version = 2;
