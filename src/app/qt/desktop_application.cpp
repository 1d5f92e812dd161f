#include "app/qt/desktop_application.h"

#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>

#include "app/message_lines.h"
#include "app/qt/framework_faults.h"
#include "app/qt/message_box.h"
#include "app/qt/screen.h"

void DesktopApplication::ProcessMessages() { QCoreApplication::processEvents(); }

void DesktopApplication::MessageBox(std::string_view text, std::string_view caption) {
  if (hasScreen()) {
    showMessageBox(text, caption);
  } else {
    sayMessage(text, caption);
  }
}

void DesktopApplication::ShowFault(const Fault& fault) {
  if (hasScreen()) {
    MessageBox(fault.message, kErrorCaption);
  } else {
    sayFault(fault);
  }
}

void DesktopApplication::endProcess(int status) {
  if (status != 0) writeKeptRemarks();
  std::fflush(nullptr);
  std::_Exit(status);
}
