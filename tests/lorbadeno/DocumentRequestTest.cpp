#include "demo/lorbadeno/DocumentRequest.h"
#include "tests/lorbadeno/DemonstrationHome.h"
#include <random>

using namespace dalvora::lorbadeno;
using namespace dalvora::test;

namespace {

const QString whole = u"EMPRESA=001;TIPODOCTO=FACTURA;CTACTE=VINET;DOCTOINI=10248;DOCTOFIN=10248;EMISION=;"
                      u"ACCION=V;FORMATO=;EMITIDO=S;TIPOCTACTE=$TIPOCTACTE$"_s;

class Request : public DemonstrationHome {
protected:
    static QString refused(const QString& command) {
        return refusal([&] { readRequest(command); });
    }
};

} // namespace

TEST_F(Request, IsReadAsTheCommissionProgramSendsIt) {
    const DocumentRequest request = readRequest(whole);
    EXPECT_EQ(request.company, u"001"_s);
    EXPECT_EQ(request.type, u"FACTURA"_s);
    EXPECT_EQ(request.account, u"VINET"_s);
    EXPECT_EQ(request.number, u"10248"_s);
}

TEST_F(Request, KeysComeInAnyCaseAndOrder) {
    const DocumentRequest request = readRequest(u"accion=v; docToIni = 7 ;TipoDocto=X;Empresa=1;"_s);
    EXPECT_EQ(request.company, u"1"_s);
    EXPECT_EQ(request.number, u"7"_s);
    EXPECT_EQ(request.account, u""_s);
}

TEST_F(Request, WhatIsNotUnderstoodIsRefused) {
    EXPECT_EQ(refused(u"Action=End"_s), u"El requerimiento no dice qué hacer con el documento"_s);
    EXPECT_EQ(refused(u""_s), u"El requerimiento no dice qué hacer con el documento"_s);
    EXPECT_EQ(refused(u"hola"_s), u"No se entiende el requerimiento"_s);
    EXPECT_EQ(refused(u"=x;ACCION=V"_s), u"No se entiende el requerimiento"_s);
    EXPECT_EQ(refused(QString(whole).replace(u"ACCION=V"_s, u"ACCION=I"_s)),
              u"Este programa sólo muestra documentos"_s);
    EXPECT_EQ(refused(QString(whole).replace(u"EMPRESA=001"_s, u"EMPRESA="_s)),
              u"El requerimiento no indica la empresa"_s);
    EXPECT_EQ(refused(QString(whole).replace(u"FACTURA"_s, u""_s)),
              u"El requerimiento no indica el documento"_s);
    EXPECT_EQ(refused(QString(whole).replace(u"DOCTOINI=10248"_s, u"DOCTOINI="_s)),
              u"El requerimiento no indica el documento"_s);
    EXPECT_EQ(refused(QString(whole).replace(u"DOCTOFIN=10248"_s, u"DOCTOFIN=10250"_s)),
              u"Este programa muestra un documento a la vez"_s);
}

TEST_F(Request, AnyTextIsReadOrRefused) {
    std::mt19937 random(5);
    for (int round = 0; round < 5000; ++round) {
        QString command = whole;
        for (unsigned change = random() % 8; change > 0; --change)
            command[random() % command.size()] = QChar(static_cast<char16_t>(random() % 0x300));
        refused(command); // raises nothing but the refusal
    }
}
