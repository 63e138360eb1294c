-- The ERP's tables that the commission program reads and writes, for the embedded database.
--
-- Text compares with the collation ERP_ES (case ignored for Spanish letters, accents count, trailing blanks
-- ignored), so codes that differ only in case are one code, as on the ERP's server. Exact numbers are
-- declared DECIMAL and dates DATE: the connection learns the kind of a value from these words. Dates are kept
-- as 'yyyy-mm-dd' and the empty date as '1900-01-01'.

-- Headers of commission schemes: one row for each period of a code.
CREATE TABLE Comisiones (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    Codigo TEXT NOT NULL COLLATE ERP_ES,
    Descripcion TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    FechaInicio DATE NOT NULL DEFAULT '1900-01-01',
    FechaFinal DATE NOT NULL DEFAULT '1900-01-01',
    Porcentaje DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Acumulable TEXT NOT NULL DEFAULT 'N' COLLATE ERP_ES,
    PRIMARY KEY (Empresa, Codigo, FechaInicio, FechaFinal)
) WITHOUT ROWID;

-- Lines of commission schemes. A line has no number of its own: everything but its description identifies
-- it. The key begins with what a read of one kind of lines asks for; Codigo comes first because a change of
-- period moves the lines of a code in every company.
CREATE TABLE ComisionesD (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    Codigo TEXT NOT NULL COLLATE ERP_ES,
    Tipo TEXT NOT NULL COLLATE ERP_ES,
    Concepto TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Descripcion TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    CantidadInicio DECIMAL(18, 6) NOT NULL DEFAULT 0,
    CantidadFinal DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Porcentaje DECIMAL(18, 6) NOT NULL DEFAULT 0,
    FechaInicio DATE NOT NULL DEFAULT '1900-01-01',
    FechaFinal DATE NOT NULL DEFAULT '1900-01-01',
    SubTipo TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Calculo TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    PRIMARY KEY (Codigo, Empresa, Tipo, FechaInicio, FechaFinal, Concepto, CantidadInicio, CantidadFinal,
                 Porcentaje, SubTipo, Calculo)
) WITHOUT ROWID;

-- The general code table: company configuration, currencies, salespeople, families, ...
CREATE TABLE gen_tabcod (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    Tipo TEXT NOT NULL COLLATE ERP_ES,
    Codigo TEXT NOT NULL COLLATE ERP_ES,
    Descripcion TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Texto TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Valor1 DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Valor2 DECIMAL(18, 6) NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, Tipo, Codigo)
) WITHOUT ROWID;

CREATE TABLE producto (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    Producto TEXT NOT NULL COLLATE ERP_ES,
    Glosa TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Familia TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    SubFamilia TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    TipoProducto TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Unidad TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    PrecioVenta DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Vigente TEXT NOT NULL DEFAULT 'S' COLLATE ERP_ES,
    PRIMARY KEY (Empresa, Producto)
);
CREATE INDEX producto_familia ON producto (Empresa, Familia);
CREATE INDEX producto_subfamilia ON producto (Empresa, SubFamilia);
CREATE INDEX producto_tipo ON producto (Empresa, TipoProducto);
CREATE INDEX producto_unidad ON producto (Empresa, Unidad);

-- FactorMonto tells how a document counts in sales: 1 adds, -1 takes away, 0 does not count.
CREATE TABLE tipodocumento (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    TipoDocto TEXT NOT NULL COLLATE ERP_ES,
    Descripcion TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Clase TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Sistema TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Valorizado TEXT NOT NULL DEFAULT 'N' COLLATE ERP_ES,
    Vendedor TEXT NOT NULL DEFAULT 'N' COLLATE ERP_ES,
    FactorMonto INTEGER NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, TipoDocto)
) WITHOUT ROWID;

CREATE TABLE ListaPrecio (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    LisPrecio TEXT NOT NULL COLLATE ERP_ES,
    Descripcion TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    FechaInicio DATE NOT NULL DEFAULT '1900-01-01',
    FechaFinal DATE NOT NULL DEFAULT '1900-01-01',
    PRIMARY KEY (Empresa, LisPrecio)
) WITHOUT ROWID;

-- Accounts: customers ('CLIENTE') and suppliers ('PROVEEDOR').
CREATE TABLE ctacte (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    TipoCtaCte TEXT NOT NULL COLLATE ERP_ES,
    CtaCte TEXT NOT NULL COLLATE ERP_ES,
    RazonSocial TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    CodLegal TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Ciudad TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Pais TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    PRIMARY KEY (Empresa, TipoCtaCte, CtaCte)
) WITHOUT ROWID;

-- Products that an account buys or sells, with the unit of measure used with it.
CREATE TABLE relctacteprod (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    TipoCtaCte TEXT NOT NULL COLLATE ERP_ES,
    CtaCte TEXT NOT NULL COLLATE ERP_ES,
    Producto TEXT NOT NULL COLLATE ERP_ES,
    Unidad TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    PRIMARY KEY (Empresa, TipoCtaCte, CtaCte, Producto)
) WITHOUT ROWID;
CREATE INDEX relctacteprod_unidad ON relctacteprod (Empresa, Unidad);

-- Sales documents. Emitido 'S' issued; Vigencia 'V' valid, 'A' voided. Total = Neto + Impuesto + Flete. The
-- three commission amounts are null until they have been worked out.
CREATE TABLE documento (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    TipoDocto TEXT NOT NULL COLLATE ERP_ES,
    Numero TEXT NOT NULL COLLATE ERP_ES,
    IdCtaCte TEXT NOT NULL COLLATE ERP_ES,
    TipoCtaCte TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Correlativo INTEGER NOT NULL DEFAULT 0,
    Fecha DATE NOT NULL DEFAULT '1900-01-01',
    Vendedor TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    LisPrecio TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Moneda TEXT NOT NULL DEFAULT '' COLLATE ERP_ES,
    Neto DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Impuesto DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Flete DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Total DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Emitido TEXT NOT NULL DEFAULT 'N' COLLATE ERP_ES,
    Vigencia TEXT NOT NULL DEFAULT 'V' COLLATE ERP_ES,
    ComisionMonto DECIMAL(18, 6),
    ComisionCantidad DECIMAL(18, 6),
    ComisionlPrecio DECIMAL(18, 6),
    PRIMARY KEY (Empresa, TipoDocto, Numero, IdCtaCte)
);
CREATE INDEX documento_fecha ON documento (Empresa, Fecha);

-- Lines of sales documents. Neto = Cantidad x Precio less Descuento per cent.
CREATE TABLE documentod (
    Empresa TEXT NOT NULL COLLATE ERP_ES,
    TipoDocto TEXT NOT NULL COLLATE ERP_ES,
    Numero TEXT NOT NULL COLLATE ERP_ES,
    IdCtaCte TEXT NOT NULL COLLATE ERP_ES,
    Linea INTEGER NOT NULL,
    Producto TEXT NOT NULL COLLATE ERP_ES,
    Cantidad DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Precio DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Descuento DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Neto DECIMAL(18, 6) NOT NULL DEFAULT 0,
    Impuesto DECIMAL(18, 6) NOT NULL DEFAULT 0,
    PRIMARY KEY (Empresa, TipoDocto, Numero, IdCtaCte, Linea)
) WITHOUT ROWID;
