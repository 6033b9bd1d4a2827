#pragma once

namespace roomlattice::platform::linux {

/// From now on the toolkit's warnings go to standard error, with the time and the program's name, as what the program
/// logs itself does, on a later turn of the event loop: what it has to say
/// about a broken connection, just before it ends the process, is then said by the program alone. What it calls fatal
/// ends the process with one line. To be called once, before the Qt application is made.
void redirectQtMessages();

}  // namespace roomlattice::platform::linux
