// The database's file is damaged, missing, or another one than it should be.
#include "data/DBTable.h"
#include "tests/faults/ProgramFixture.h"
#include "tests/faults/ProgramRun.h"
#include <QDir>
#include <QFile>
#include <random>
#include <unistd.h>

namespace dalvora::test {

namespace {

struct Damage {
    const char* name;
    void (*cause)(const TestCompany&);
    /// Number and begin of the description that the user is told.
    const char16_t* told;

    friend void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }
};

void cutTo(const TestCompany& company, qint64 size) {
    ASSERT_TRUE(QFile::resize(company.database(), size));
}

const Damage damages[] = {
    {"NotADatabase", [](const TestCompany& c) { writeFile(c.database(), QByteArray(20'000, 'x')); },
     u"3343 - El archivo no es una base de datos"},
    {"ATextFile", [](const TestCompany& c) { writeFile(c.database(), "SELECT * FROM Comisiones;\n"); },
     u"3343 - El archivo no es una base de datos"},
    {"CutInHalf", [](const TestCompany& c) { cutTo(c, QFile(c.database()).size() / 2); },
     u"3343 - La base de datos está dañada"},
    {"CutInItsFirstPage", [](const TestCompany& c) { cutTo(c, 1000); }, u"3343 - "},
    {"CutInItsHeader", [](const TestCompany& c) { cutTo(c, 60); }, u"3343 - "},
    {"OfNoBytes", [](const TestCompany& c) { cutTo(c, 0); }, u"3343 - "},
    {"OfAnOlderLayout", [](const TestCompany& c) { c.execute(u"UPDATE ses_esquema SET Version = 0"_s); },
     u"3343 - La base de datos "},
    {"OfANewerLayout", [](const TestCompany& c) { c.execute(u"UPDATE ses_esquema SET Version = 99"_s); },
     u"3343 - La base de datos "},
    {"OfNoLayout", [](const TestCompany& c) { c.execute(u"DELETE FROM ses_esquema"_s); },
     u"3343 - La base de datos "},
    {"OfAnotherProgram",
     [](const TestCompany& c) {
         QFile::remove(c.database());
         writeFile(c.database(), {});
         c.execute(u"CREATE TABLE canciones (Titulo); INSERT INTO canciones VALUES ('Gracias a la vida')"_s);
     },
     u"3343 - "},
    {"Missing", [](const TestCompany& c) { QFile::remove(c.database()); },
     u"53 - No se encontró la base de datos "},
    {"AFolder",
     [](const TestCompany& c) {
         QFile::remove(c.database());
         QDir().mkdir(c.database());
     },
     u"75 - No se puede abrir la base de datos"},
};

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class DamagedDatabase : public testing::TestWithParam<Damage> {};

} // namespace

TEST_P(DamagedDatabase, EndsTheStartWithOneMessageAndIsLeftAsItIs) {
    const TestCompany company;
    const ProgramFiles files;
    GetParam().cause(company);
    const QByteArray before = bytesOf(company.database());
    const ProgramRun run(company.path(), files);
    EXPECT_FALSE(run.crashed);
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(run.told.startsWith(u"Quorvane ERP - Dalvora: Error al iniciar aplicación\n"_s +
                                    QString::fromUtf16(GetParam().told)))
        << qPrintable(run.told);
    EXPECT_EQ(run.told.count(u'\n'), 2) << qPrintable(run.told);
    EXPECT_TRUE(run.told.contains(company.database())) << qPrintable(run.told);
    EXPECT_EQ(bytesOf(company.database()), before);
    EXPECT_EQ(QDir(company.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot).size(),
              QFile::exists(company.database()) ? 2 : 1)
        << "a file was left beside the profile";
}

INSTANTIATE_TEST_SUITE_P(Every, DamagedDatabase, testing::ValuesIn(damages),
                         [](const auto& entry) { return std::string(entry.param.name); });

TEST(DatabaseWithoutATable, IsToldByTheOperationThatNeedsIt) {
    const TestCompany company;
    const ProgramFiles files;
    company.execute(u"DROP TABLE gen_tabcod"_s);
    const ProgramRun run(company.path(), files);
    EXPECT_FALSE(run.crashed);
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.told, u"Quorvane ERP - Dalvora: Error al inicializar la aplicación\n"
                        u"1 -Error de la base de datos [no such table: gen_tabcod]\n"_s);
}

namespace {

/// Files that another user owns, to be used by one without the superuser's rights.
class ForeignFiles : public testing::Test {
protected:
    void SetUp() override {
        if (geteuid() != 0)
            GTEST_SKIP() << "only the superuser can start a program as another user";
        states.store(company, 1);
        for (const QString& folder : {files.programFolder(), files.programFolder() + u"/.."_s})
            setMode(folder, readable | enterable);
    }
    static void setMode(const QString& path, QFile::Permissions others) {
        ASSERT_TRUE(
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | others));
    }
    ProgramRun runAsAnother() const {
        return {company.path(), files, {}, u"C1"_s, ProgramRun::User::Unprivileged};
    }

    static constexpr auto readable = QFile::ReadOther;
    static constexpr auto writable = QFile::WriteOther;
    static constexpr auto enterable = QFile::ExeOther;
    const TestCompany company;
    const SchemeStates states{u"C1"_s, 30};
    const ProgramFiles files;
};

} // namespace

TEST_F(ForeignFiles, AReadOnlyDatabaseIsReadAfterOneWarning) {
    setMode(company.path(), readable | writable | enterable);
    setMode(company.profileFile(), readable);
    setMode(company.database(), readable);
    const ProgramRun run = runAsAnother();
    EXPECT_FALSE(run.crashed);
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.told.contains(u"es de sólo lectura: puede consultar e imprimir, pero no grabar"_s))
        << qPrintable(run.told);
    EXPECT_TRUE(run.told.endsWith(u": Usuario no tiene permiso de escritura\n"_s)) << qPrintable(run.told);
    EXPECT_EQ(run.told.count(u'\n'), 2) << qPrintable(run.told);
    EXPECT_EQ(run.found, u"derechos R-X-\nleido 28 lineas\nno grabado\n"_s);
    EXPECT_EQ(states.storedRows(company), states.rows(1));
}

TEST_F(ForeignFiles, AReadOnlyFolderIsTold) {
    setMode(company.path(), readable | enterable);
    setMode(company.profileFile(), readable);
    setMode(company.database(), readable | writable);
    const ProgramRun run = runAsAnother();
    EXPECT_FALSE(run.crashed);
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(run.told.startsWith(
        u"Quorvane ERP - Dalvora: Error al iniciar aplicación\n70 - No se puede usar la base de datos "_s))
        << qPrintable(run.told);
    EXPECT_TRUE(run.told.contains(u"su carpeta es de sólo lectura"_s));
}

TEST_F(ForeignFiles, ADatabaseThatMayNotBeReadIsTold) {
    setMode(company.path(), readable | writable | enterable);
    setMode(company.profileFile(), readable);
    setMode(company.database(), {});
    const ProgramRun run = runAsAnother();
    EXPECT_FALSE(run.crashed);
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(run.told.startsWith(
        u"Quorvane ERP - Dalvora: Error al iniciar aplicación\n70 - No se puede usar la base de datos "_s))
        << qPrintable(run.told);
}

TEST_F(ForeignFiles, AFolderWithoutEntryIsTold) {
    setMode(company.path(), {});
    const ProgramRun run = runAsAnother();
    EXPECT_FALSE(run.crashed);
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(run.told.startsWith(u"Quorvane ERP - Dalvora: Error al iniciar aplicación\n"_s))
        << qPrintable(run.told);
    EXPECT_EQ(run.told.count(u'\n'), 2) << qPrintable(run.told);
}

namespace {

const QString gone =
    u"3709 - El archivo de la base de datos fue borrado o reemplazado mientras se trabajaba"_s;

/// Something happens to the file while the program has a scheme on screen.
class ChangedWhileRunning : public ProgramFixture {
protected:
    void SetUp() override {
        readC1();
        changeOneCell();
        before = program.screen();
    }
    /// What belongs to the database goes, as when a backup is put in its place.
    void removeDatabase() {
        for (const char* suffix : {"", "-wal", "-shm"})
            QFile::remove(company.database() + QLatin1String(suffix));
    }
    void expectRefused(const QString& reason) {
        program.click(u"grabar"_s);
        const Message message = told();
        EXPECT_TRUE(message.text.startsWith(u"Error al grabar registro\n"_s + reason))
            << qPrintable(message.text);
        EXPECT_EQ(message.style, MessageError);
        EXPECT_EQ(program.screen(), before);
    }

    QStringList before;
};

} // namespace

TEST_F(ChangedWhileRunning, ADeletedDatabaseIsToldAtEverySaveAndNothingIsMadeInItsPlace) {
    removeDatabase();
    expectRefused(gone);
    expectRefused(u"53 - No se encontró la base de datos "_s);
    EXPECT_FALSE(QFile::exists(company.database()));
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    EXPECT_TRUE(told().text.startsWith(u"Error al leer registro\n53 - "_s));
}

TEST_F(ChangedWhileRunning, ADeletedDatabaseIsToldByAReadToo) {
    removeDatabase();
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    EXPECT_EQ(told(), (Message{u"Error al leer registro\n"_s + gone, MessageError}));
}

TEST_F(ChangedWhileRunning, AfterABackupHasBeenPutInItsPlaceTheNextSaveGoesThere) {
    const TestCompany backup;
    states.store(backup, 1);
    removeDatabase();
    ASSERT_TRUE(QFile::rename(backup.database(), company.database()));
    expectRefused(gone);
    program.click(u"grabar"_s);
    expectSilence();
    EXPECT_EQ(changedCells(), u"1"_s);
    EXPECT_EQ(company.integrity(), u"ok"_s);
}

TEST_F(ChangedWhileRunning, ABackupOfAnotherPeriodRefusesTheSave) {
    const TestCompany backup;
    states.store(backup, 5);
    removeDatabase();
    ASSERT_TRUE(QFile::rename(backup.database(), company.database()));
    expectRefused(gone);
    program.click(u"grabar"_s);
    EXPECT_EQ(told(), (Message{u"No se grabó el registro porque ha sido modificado por otro usuario. Debe "
                               u"leer nuevamente."_s,
                               MessageInformation}));
    EXPECT_EQ(states.storedRows(company), states.rows(5));
}

TEST_F(ChangedWhileRunning, AFileThatIsNoDatabaseInItsPlaceIsTold) {
    removeDatabase();
    writeFile(company.database(), QByteArray(20'000, 'x'));
    expectRefused(gone);
    expectRefused(u"3343 - El archivo no es una base de datos"_s);
}

TEST_F(ChangedWhileRunning, TheFolderIsGone) {
    ASSERT_TRUE(QDir(company.path()).removeRecursively());
    expectRefused(gone);
    expectRefused(u"53 - "_s);
    program.form().close();
    EXPECT_FALSE(program.context().Table);
}

// Bytes change where nobody checks them: whatever the program makes of it, it tells and goes on.
TEST(DatabaseWithChangedBytes, NeverCrashesTheProgram) {
    const ProgramFiles files;
    std::mt19937 random(20'060'305); // the same damage in every run
    for (int round = 0; round < 40; ++round) {
        const TestCompany company;
        SchemeStates(u"C1"_s, 200).store(company, 1);
        QByteArray bytes = bytesOf(company.database());
        for (int i = 0; i <= round; ++i)
            bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
                static_cast<char>(random());
        writeFile(company.database(), bytes);
        const ProgramRun run(company.path(), files, {}, u"C1"_s);
        EXPECT_FALSE(run.crashed) << "round " << round << ": " << qPrintable(run.told);
        EXPECT_TRUE(run.result == 0 || (run.result == 1 && !run.told.isEmpty())) << "round " << round;
    }
}

} // namespace dalvora::test
