-- The ERP's tables that the commission program reads and writes, for a PostgreSQL server.
--
-- Texts are citext: they compare without case (accents count), so codes that differ only in case are one
-- code, as on the ERP's server. The empty date is '1900-01-01'. Keys begin with what the program's statements
-- ask for.
CREATE EXTENSION IF NOT EXISTS citext;

-- Headers of commission schemes: one row for each period of a code.
CREATE TABLE Comisiones (
    Empresa citext NOT NULL,
    Codigo citext NOT NULL,
    Descripcion citext NOT NULL DEFAULT '',
    FechaInicio date NOT NULL DEFAULT '1900-01-01',
    FechaFinal date NOT NULL DEFAULT '1900-01-01',
    Porcentaje numeric(18, 6) NOT NULL DEFAULT 0,
    Acumulable citext NOT NULL DEFAULT 'N',
    PRIMARY KEY (Empresa, Codigo, FechaInicio, FechaFinal)
);

-- Lines of commission schemes. A line has no number of its own: everything but its description identifies
-- it. The key begins with what a read of one kind of lines asks for; Codigo comes first because a change of
-- period moves the lines of a code in every company.
CREATE TABLE ComisionesD (
    Empresa citext NOT NULL,
    Codigo citext NOT NULL,
    Tipo citext NOT NULL,
    Concepto citext NOT NULL DEFAULT '',
    Descripcion citext NOT NULL DEFAULT '',
    CantidadInicio numeric(18, 6) NOT NULL DEFAULT 0,
    CantidadFinal numeric(18, 6) NOT NULL DEFAULT 0,
    Porcentaje numeric(18, 6) NOT NULL DEFAULT 0,
    FechaInicio date NOT NULL DEFAULT '1900-01-01',
    FechaFinal date NOT NULL DEFAULT '1900-01-01',
    SubTipo citext NOT NULL DEFAULT '',
    Calculo citext NOT NULL DEFAULT '',
    PRIMARY KEY (Codigo, Empresa, Tipo, FechaInicio, FechaFinal, Concepto, CantidadInicio, CantidadFinal,
                 Porcentaje, SubTipo, Calculo)
);

-- The general code table: company configuration, currencies, salespeople, families, ...
CREATE TABLE gen_tabcod (
    Empresa citext NOT NULL,
    Tipo citext NOT NULL,
    Codigo citext NOT NULL,
    Descripcion citext NOT NULL DEFAULT '',
    Texto citext NOT NULL DEFAULT '',
    Valor1 numeric(18, 6) NOT NULL DEFAULT 0,
    Valor2 numeric(18, 6) NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, Tipo, Codigo)
);

CREATE TABLE producto (
    Empresa citext NOT NULL,
    Producto citext NOT NULL,
    Glosa citext NOT NULL DEFAULT '',
    Familia citext NOT NULL DEFAULT '',
    SubFamilia citext NOT NULL DEFAULT '',
    TipoProducto citext NOT NULL DEFAULT '',
    Unidad citext NOT NULL DEFAULT '',
    PrecioVenta numeric(18, 6) NOT NULL DEFAULT 0,
    Vigente citext NOT NULL DEFAULT 'S',
    PRIMARY KEY (Empresa, Producto)
);
CREATE INDEX producto_familia ON producto (Empresa, Familia);
CREATE INDEX producto_subfamilia ON producto (Empresa, SubFamilia);
CREATE INDEX producto_tipo ON producto (Empresa, TipoProducto);
CREATE INDEX producto_unidad ON producto (Empresa, Unidad);

-- FactorMonto tells how a document counts in sales: 1 adds, -1 takes away, 0 does not count.
CREATE TABLE tipodocumento (
    Empresa citext NOT NULL,
    TipoDocto citext NOT NULL,
    Descripcion citext NOT NULL DEFAULT '',
    Clase citext NOT NULL DEFAULT '',
    Sistema citext NOT NULL DEFAULT '',
    Valorizado citext NOT NULL DEFAULT 'N',
    Vendedor citext NOT NULL DEFAULT 'N',
    FactorMonto integer NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, TipoDocto)
);

CREATE TABLE ListaPrecio (
    Empresa citext NOT NULL,
    LisPrecio citext NOT NULL,
    Descripcion citext NOT NULL DEFAULT '',
    FechaInicio date NOT NULL DEFAULT '1900-01-01',
    FechaFinal date NOT NULL DEFAULT '1900-01-01',
    PRIMARY KEY (Empresa, LisPrecio)
);

-- Accounts: customers ('CLIENTE') and suppliers ('PROVEEDOR').
CREATE TABLE ctacte (
    Empresa citext NOT NULL,
    TipoCtaCte citext NOT NULL,
    CtaCte citext NOT NULL,
    RazonSocial citext NOT NULL DEFAULT '',
    CodLegal citext NOT NULL DEFAULT '',
    Ciudad citext NOT NULL DEFAULT '',
    Pais citext NOT NULL DEFAULT '',
    PRIMARY KEY (Empresa, TipoCtaCte, CtaCte)
);

-- Products that an account buys or sells, with the unit of measure used with it.
CREATE TABLE relctacteprod (
    Empresa citext NOT NULL,
    TipoCtaCte citext NOT NULL,
    CtaCte citext NOT NULL,
    Producto citext NOT NULL,
    Unidad citext NOT NULL DEFAULT '',
    PRIMARY KEY (Empresa, TipoCtaCte, CtaCte, Producto)
);
CREATE INDEX relctacteprod_unidad ON relctacteprod (Empresa, Unidad);

-- Sales documents. Emitido 'S' issued; Vigencia 'V' valid, 'A' voided. Total = Neto + Impuesto + Flete. The
-- three commission amounts are null until they have been worked out.
CREATE TABLE documento (
    Empresa citext NOT NULL,
    TipoDocto citext NOT NULL,
    Numero citext NOT NULL,
    IdCtaCte citext NOT NULL,
    TipoCtaCte citext NOT NULL DEFAULT '',
    Correlativo integer NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Vendedor citext NOT NULL DEFAULT '',
    LisPrecio citext NOT NULL DEFAULT '',
    Moneda citext NOT NULL DEFAULT '',
    Neto numeric(18, 6) NOT NULL DEFAULT 0,
    Impuesto numeric(18, 6) NOT NULL DEFAULT 0,
    Flete numeric(18, 6) NOT NULL DEFAULT 0,
    Total numeric(18, 6) NOT NULL DEFAULT 0,
    Emitido citext NOT NULL DEFAULT 'N',
    Vigencia citext NOT NULL DEFAULT 'V',
    ComisionMonto numeric(18, 6),
    ComisionCantidad numeric(18, 6),
    ComisionlPrecio numeric(18, 6),
    PRIMARY KEY (Empresa, TipoDocto, Numero, IdCtaCte)
);
CREATE INDEX documento_fecha ON documento (Empresa, Fecha);

-- Lines of sales documents. Neto = Cantidad x Precio less Descuento per cent.
CREATE TABLE documentod (
    Empresa citext NOT NULL,
    TipoDocto citext NOT NULL,
    Numero citext NOT NULL,
    IdCtaCte citext NOT NULL,
    Linea integer NOT NULL,
    Producto citext NOT NULL,
    Cantidad numeric(18, 6) NOT NULL DEFAULT 0,
    Precio numeric(18, 6) NOT NULL DEFAULT 0,
    Descuento numeric(18, 6) NOT NULL DEFAULT 0,
    Neto numeric(18, 6) NOT NULL DEFAULT 0,
    Impuesto numeric(18, 6) NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, TipoDocto, Numero, IdCtaCte, Linea)
);
