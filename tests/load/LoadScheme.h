#pragma once

#include "data/DBTable.h"
#include "tests/load/LoadHistory.h"
#include <random>

namespace quorvane {
class Connection;
}

namespace dalvora::test {

// Three families of schemes, told by the first letter of the code:
//
//   M  every save writes every line anew and moves the period by a day, so that a save from an old reading is
//      always refused; they are deleted and made again by their owner in another period.
//   S  everyone has three lines of his own in it and changes only these and the header.
//   N  everyone tries to make it, nobody changes it.
//
// Each save has a mark, "user.number". The description begins with it and the "calculo" of each line that the
// save writes is it; the description goes on with the number of lines of each kind (M, N).

using LoadRandom = std::mt19937;

/// Who made a mark.
int userOf(const QString& mark);

/// What a record (or the database) holds of one scheme, as cells; what does not fit together is told in
/// `faults`.
std::vector<LoadCell> cellsOf(DBTable& table, QStringList& faults);
/// The cells of all schemes and salespeople, read with statements of their own. Everything of a scheme that
/// does not fit together is told in `faults`.
std::vector<LoadCell> storedCells(quorvane::Connection& connection, QStringList& faults);

/// Fills an empty record with a new scheme of family M or N.
void makeScheme(DBTable& table, const QString& mark, int day, LoadRandom& random);
/// Enters the next state of a scheme of family M that was read.
void changeScheme(DBTable& table, const QString& mark, LoadRandom& random);
/// Enters a user's part of a scheme of family S that was read. Returns the cells that its save writes.
std::vector<LoadCell> changeShare(DBTable& table, const QString& mark);

/// Every text that a record shows, for comparing before and after.
QStringList entriesOf(DBTable& table);

} // namespace dalvora::test
