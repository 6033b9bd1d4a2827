#include "platform/x11/drawing/ProgramIcon.h"

#include <QResource>
#include <QString>

/// A static library has to ask for its resources. The toolkit's macro declares a function, and that in no namespace.
static void takeResources() {
  Q_INIT_RESOURCE(icons);
}

namespace roomlattice::platform::x11 {

QIcon programIcon() {
  takeResources();
  QIcon icon;
  for (const int size : {16, 32, 48, 64}) {
    icon.addFile(QStringLiteral(":/icons/%1.png").arg(size));
  }
  return icon;
}

}  // namespace roomlattice::platform::x11
