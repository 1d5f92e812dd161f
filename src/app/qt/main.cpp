#include <QApplication>
#include <clocale>
#include <optional>

#include "app/console/standard_streams.h"
#include "app/desktop/platform_command_line.h"
#include "app/desktop/start_up.h"
#include "app/qt/desktop_application.h"
#include "app/qt/framework_faults.h"
#include "app/qt/frm_calculo.h"
#include "app/qt/pictures.h"
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

    std::optional<TPrincipal> mainForm;  // the forms too are there for as long as the process
    std::optional<TfrmCalculo> inputForm;
    startUp(platformCommandLine(argc, argv), [&](const RunPaths& paths) {
      Principal = &mainForm.emplace(nullptr, paths.dataFile, paths.typologyFile, paths.outputFile,
                                    paths.markerFile);
      frmCalculo = &inputForm.emplace(nullptr);
      QObject::connect(Principal, &QDialog::finished, [] { QCoreApplication::exit(); });
      Principal->show();
      QApplication::exec();
    });
  });
}
