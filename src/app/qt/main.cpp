#include <QApplication>
#include <clocale>
#include <optional>

#include "app/completion_marker.h"
#include "app/console/standard_streams.h"
#include "app/qt/desktop_application.h"
#include "app/qt/framework_faults.h"
#include "app/qt/frm_calculo.h"
#include "app/qt/pictures.h"
#include "app/qt/platform_command_line.h"
#include "app/qt/principal.h"
#include "app/qt/screen.h"
#include "app/run_safely.h"

int main(int argc, char* argv[]) {
  openStandardStreams();
  DesktopApplication application;
  Application = &application;

  // The framework gets no arguments: all of them belong to the paths.
  int frameworkArgc = 1;
  char frameworkName[] = "tip2bdl";
  char* frameworkArgv[] = {frameworkName, nullptr};
  std::optional<QApplication> framework;  // outlives what may throw, so that its box can be shown

  return runSafely([&]() -> int {
    endAsAnErrorOnFrameworkFaults();
    {
      const ScreenChoice choice;
      endAsAnErrorIfScreenIsLost();
      framework.emplace(frameworkArgc, frameworkArgv);
    }
    std::setlocale(LC_NUMERIC, "C");  // the framework has taken the user's
    QApplication::setWindowIcon(programIcon());
    QApplication::setQuitOnLastWindowClosed(false);  // a message box is a window too

    const RunPaths paths = splitCommandLine(platformCommandLine(argc, argv));
    TPrincipal mainForm(nullptr, paths.dataFile, paths.typologyFile, paths.outputFile,
                        paths.markerFile);
    TfrmCalculo inputForm(nullptr);
    Principal = &mainForm;
    frmCalculo = &inputForm;
    QObject::connect(Principal, &QDialog::finished, [] { QCoreApplication::exit(); });
    Principal->show();
    QApplication::exec();

    createCompletionMarker(paths.markerFile);
    // Who sees the marker is told no other thing: taking the framework down could still fail.
    Application->Terminate(0);
  });
}
