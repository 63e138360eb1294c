#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"

namespace quorvane {
class Recordset;
} // namespace quorvane
namespace quorvane::report {
class Report;
} // namespace quorvane::report

namespace dalvora {

/// Gives the report's heading formulas (names with "@Cfg" or "@Ubs" in them) the columns of a row that they
/// are named for, as {@CfgEmpresa} is for CfgEmpresa; a formula without its column becomes an empty text. The
/// first other error ends it and leaves it as RunTimeError.
void fillHeaderFormulas(quorvane::report::Report& report, const quorvane::Recordset& row,
                        const quorvane::RegionalSettings& regional);

} // namespace dalvora
