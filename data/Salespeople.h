#pragma once

#include <QString>
#include <cstddef>
#include <vector>

namespace dalvora {

struct SessionContext;

/// A row of the general code table that stands for a salesperson, and the scheme that was assigned.
struct Salesperson {
    QString Codigo;
    QString Descripcion;
    QString texto; ///< code of the commission scheme
};

/// The salespeople of the company that is signed in to: read them, give them a scheme. Reads and writes what
/// other programs of the ERP read and write at the same time; nothing is kept here between two calls.
class Salespeople {
public:
    /// A read stops with this many.
    static constexpr std::size_t most = 5000;

    explicit Salespeople(const SessionContext& context) : m_context(context) {}

    /// Whether the user's rights begin with a capital "R". A raised error of the session leaves it.
    bool mayRead() const;

    /// Appends the salespeople whose code begins with the filter (blanks around it do not count; all when it
    /// is blank). The filter stands in the statement as it was typed: "%", "_" and quotes mean there what
    /// they mean to the database, and the connection runs nothing but one SELECT. What was appended before an
    /// error stays: the database's errors, and one that tells the limit when `most` have been read.
    void read(const QString& filter, std::vector<Salesperson>& people) const;

    /// Code of the scheme that the record holds now; "" without a record.
    QString schemeCode() const;

    /// Stores the scheme code with the salesperson of the given code; one that is gone meanwhile is passed
    /// over. Error 3705 for a scheme code that cannot stand between quotes, else the database's errors.
    void assign(const QString& scheme, const QString& salesperson) const;

private:
    const SessionContext& m_context;
};

} // namespace dalvora
