#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Session.h"
#include "tests/support/QtPrinters.h"
#include <optional>
#include <utility>
#include <vector>

namespace dalvora::test {

/// A session that is signed in: company 01, user ana, all rights. Its audit trail is a list that can be made
/// to fail.
class FakeSession final : public quorvane::Session {
public:
    void SetApplication(const quorvane::ApplicationInfo&) override {}
    void SetClientInfo(const QString&) override {}
    void Initialize(quorvane::Connection&, const QString&, const QString&, const QString&, const QString&,
                    bool& cancel) override {
        cancel = false;
    }
    QString CompanyName() const override { return QStringLiteral("Empresa de prueba"); }
    QString CompanyCode() const override { return company; }
    QString UserName() const override { return user; }
    QString AccessRights() const override {
        if (rightsError)
            throw *rightsError;
        return rights;
    }
    void Audit(int code, const QString& text) override {
        if (auditError)
            throw *auditError;
        audits.emplace_back(code, text);
    }

    QString company = QStringLiteral("01");
    QString user = QStringLiteral("ana");
    QString rights = QStringLiteral("RWXD");
    std::vector<std::pair<int, QString>> audits;
    std::optional<quorvane::RunTimeError> auditError;
    std::optional<quorvane::RunTimeError> rightsError;
};

} // namespace dalvora::test
