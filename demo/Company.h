#pragma once

#include "demo/Commission.h"
#include "demo/RowTarget.h"
#include "demo/SalesDocuments.h"
#include "demo/TradingData.h"
#include <QString>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace dalvora::demo {

/// A row of the company's configuration.
struct CompanySetting {
    const char* code;
    const char* text;
};

/// One company of the demonstration: which part of the trading data is its own.
struct Company {
    QString code;
    QString name;
    std::span<const CompanySetting> settings;
    int quantityDecimals = 2;
    TradingData data;
    /// When set, only this family of products is its own.
    QString onlyFamily;
    /// Invoices, then credit notes.
    std::vector<SalesDocument> documents;
    std::vector<Scheme> schemes;
    std::function<QString(const QString& salesperson)> assignedScheme;
    /// How many documents at the start of the list are not issued yet, and how many behind them are voided.
    int unissued = 0;
    int voided = 0;

    /// The local currency's code.
    QString currency() const;
};

/// Company 001: the whole trading data and all schemes.
Company mainCompany();
/// Company 002: the beverages and a handful of documents, among them one not issued and one voided. It has a
/// scheme with code and period of one of company 001.
Company secondCompany();

/// What a document of the company earns its salesperson under the scheme assigned to him; nothing when he has
/// none or it has no period for the document's date.
std::optional<Commission> commissionOf(const Company& company, const SalesDocument& document);

// The tables of a company; the database's errors leave them as RunTimeError.

/// Configuration, currencies, salespeople, products, accounts, document types and price lists.
void writeMasterTables(RowTarget& target, const Company& company);
void writeSchemes(RowTarget& target, const Company& company);
void writeDocuments(RowTarget& target, const Company& company);

/// The description of a price list; "" for a code that is none.
QString priceListLabel(const QString& code);

} // namespace dalvora::demo
