#pragma once

#include <QFont>

namespace skin {

/// Font of the programs' windows: Tahoma where it is installed, else the installed font nearest to it in
/// width and shape. Its size is 12 pixels at 96 dpi (9 points), like all other measures of a window.
QFont uiFont();

} // namespace skin
