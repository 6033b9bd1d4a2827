#pragma once

namespace roomlattice::platform::linux {

/// Sends the toolkit's warnings to standard error from now on, with the time and the program's name before them like
/// the program's own log lines. To be called once, before the Qt application is made.
///
/// A warning is written on a later turn of the event loop. When the toolkit loses its connection, it warns and ends the
/// process at once: that warning is never written, and the program alone says what has happened. A message that the
/// toolkit calls fatal ends the process with one line.
void redirectQtMessages();

}  // namespace roomlattice::platform::linux
