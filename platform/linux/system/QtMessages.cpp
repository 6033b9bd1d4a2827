#include "platform/linux/system/QtMessages.h"

#include "platform/linux/system/CommandLine.h"
#include "platform/linux/system/LogLine.h"
#include "platform/linux/system/StandardStreams.h"

#include <QCoreApplication>
#include <QString>
#include <QtGlobal>
#include <chrono>
#include <cstdlib>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtFatalMsg) {
    printError(message.simplified().toStdString());
    _exit(EXIT_FAILURE);
  }
  if (type == QtDebugMsg || type == QtInfoMsg || QCoreApplication::instance() == nullptr) {
    return;
  }
  const std::string line = "Qt: " + message.toStdString();
  QMetaObject::invokeMethod(
      QCoreApplication::instance(),
      [line] { writeToStandardError(stampedLogLine(std::chrono::system_clock::now(), line)); }, Qt::QueuedConnection);
}

}  // namespace

void redirectQtMessages() {
  qInstallMessageHandler(handleMessage);
}

}  // namespace roomlattice::platform::linux
