#pragma once

namespace dalvora::test {

/// What the saving program tells on its standard output, one byte each.
enum SaverMark : char {
    MarkReady = 'r',     ///< it has read and changed its scheme and waits for a byte on its standard input
    MarkStatement = 's', ///< a statement of the transaction is about to run
    MarkDone = 'd',      ///< the save or delete has returned with success
    MarkFailed = 'x',    ///< it has returned without; a message on the error stream says why
};

} // namespace dalvora::test
