-- The ERP's tables that the commission program reads and writes, for SQL Server 2008 or later.
--
-- Texts ignore case and heed accents whatever the database's own collation is, so codes that differ only in
-- case are one code. They are varchar: the program's literals are, so a letter outside the database's code
-- page is lost before it reaches a column of any type. Dates are of the type date, which takes dd/mm/yyyy
-- from a session set to day, month, year, yyyy-mm-dd from any session (datetime would swap month and day),
-- and '' as 1900-01-01, the empty date. Keys begin with what the program's statements ask for.

-- Headers of commission schemes: one row for each period of a code.
CREATE TABLE Comisiones (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Codigo varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Descripcion varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    FechaInicio date NOT NULL DEFAULT '1900-01-01',
    FechaFinal date NOT NULL DEFAULT '1900-01-01',
    Porcentaje decimal(18, 6) NOT NULL DEFAULT 0,
    Acumulable varchar(1) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT 'N',
    PRIMARY KEY (Empresa, Codigo, FechaInicio, FechaFinal)
);

-- Lines of commission schemes. A line has no number of its own: everything but its description identifies
-- it. The key begins with what a read of one kind of lines asks for; Codigo comes first because a change of
-- period moves the lines of a code in every company.
CREATE TABLE ComisionesD (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Codigo varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Tipo varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Concepto varchar(40) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Descripcion varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    CantidadInicio decimal(18, 6) NOT NULL DEFAULT 0,
    CantidadFinal decimal(18, 6) NOT NULL DEFAULT 0,
    Porcentaje decimal(18, 6) NOT NULL DEFAULT 0,
    FechaInicio date NOT NULL DEFAULT '1900-01-01',
    FechaFinal date NOT NULL DEFAULT '1900-01-01',
    SubTipo varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Calculo varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    PRIMARY KEY (Codigo, Empresa, Tipo, FechaInicio, FechaFinal, Concepto, CantidadInicio, CantidadFinal,
                 Porcentaje, SubTipo, Calculo)
);

-- The general code table: company configuration, currencies, salespeople, families, ...
CREATE TABLE gen_tabcod (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Tipo varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Codigo varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Descripcion varchar(100) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Texto varchar(255) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Valor1 decimal(18, 6) NOT NULL DEFAULT 0,
    Valor2 decimal(18, 6) NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, Tipo, Codigo)
);

CREATE TABLE producto (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Producto varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Glosa varchar(100) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Familia varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    SubFamilia varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    TipoProducto varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Unidad varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    PrecioVenta decimal(18, 6) NOT NULL DEFAULT 0,
    Vigente varchar(1) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT 'S',
    PRIMARY KEY (Empresa, Producto)
);
CREATE INDEX producto_familia ON producto (Empresa, Familia);
CREATE INDEX producto_subfamilia ON producto (Empresa, SubFamilia);
CREATE INDEX producto_tipo ON producto (Empresa, TipoProducto);
CREATE INDEX producto_unidad ON producto (Empresa, Unidad);

-- FactorMonto tells how a document counts in sales: 1 adds, -1 takes away, 0 does not count.
CREATE TABLE tipodocumento (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    TipoDocto varchar(40) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Descripcion varchar(100) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Clase varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Sistema varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Valorizado varchar(1) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT 'N',
    Vendedor varchar(1) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT 'N',
    FactorMonto int NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, TipoDocto)
);

CREATE TABLE ListaPrecio (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    LisPrecio varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Descripcion varchar(100) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    FechaInicio date NOT NULL DEFAULT '1900-01-01',
    FechaFinal date NOT NULL DEFAULT '1900-01-01',
    PRIMARY KEY (Empresa, LisPrecio)
);

-- Accounts: customers ('CLIENTE') and suppliers ('PROVEEDOR').
CREATE TABLE ctacte (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    TipoCtaCte varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    CtaCte varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    RazonSocial varchar(100) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    CodLegal varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Ciudad varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Pais varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    PRIMARY KEY (Empresa, TipoCtaCte, CtaCte)
);

-- Products that an account buys or sells, with the unit of measure used with it.
CREATE TABLE relctacteprod (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    TipoCtaCte varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    CtaCte varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Producto varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Unidad varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    PRIMARY KEY (Empresa, TipoCtaCte, CtaCte, Producto)
);
CREATE INDEX relctacteprod_unidad ON relctacteprod (Empresa, Unidad);

-- Sales documents. Emitido 'S' issued; Vigencia 'V' valid, 'A' voided. Total = Neto + Impuesto + Flete. The
-- three commission amounts are null until they have been worked out.
CREATE TABLE documento (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    TipoDocto varchar(40) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Numero varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    IdCtaCte varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    TipoCtaCte varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Correlativo int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Vendedor varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    LisPrecio varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Moneda varchar(50) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    Neto decimal(18, 6) NOT NULL DEFAULT 0,
    Impuesto decimal(18, 6) NOT NULL DEFAULT 0,
    Flete decimal(18, 6) NOT NULL DEFAULT 0,
    Total decimal(18, 6) NOT NULL DEFAULT 0,
    Emitido varchar(1) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT 'N',
    Vigencia varchar(1) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT 'V',
    ComisionMonto decimal(18, 6) NULL,
    ComisionCantidad decimal(18, 6) NULL,
    ComisionlPrecio decimal(18, 6) NULL,
    PRIMARY KEY (Empresa, TipoDocto, Numero, IdCtaCte)
);
CREATE INDEX documento_fecha ON documento (Empresa, Fecha);

-- Lines of sales documents. Neto = Cantidad x Precio less Descuento per cent.
CREATE TABLE documentod (
    Empresa varchar(10) COLLATE Modern_Spanish_CI_AS NOT NULL,
    TipoDocto varchar(40) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Numero varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    IdCtaCte varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Linea int NOT NULL,
    Producto varchar(20) COLLATE Modern_Spanish_CI_AS NOT NULL,
    Cantidad decimal(18, 6) NOT NULL DEFAULT 0,
    Precio decimal(18, 6) NOT NULL DEFAULT 0,
    Descuento decimal(18, 6) NOT NULL DEFAULT 0,
    Neto decimal(18, 6) NOT NULL DEFAULT 0,
    Impuesto decimal(18, 6) NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, TipoDocto, Numero, IdCtaCte, Linea)
);
