#include <QApplication>
#include <clocale>
#include <optional>

#include "app/desktop/platform_command_line.h"
#include "app/desktop/start_up.h"
#include "app/qt/desktop_application.h"
#include "app/qt/framework_faults.h"
#include "app/qt/frm_calculo.h"
#include "app/qt/pictures.h"
#include "app/qt/principal.h"
#include "app/qt/screen.h"
#include "app/run_safely.h"
#include "app/standard_streams.h"

namespace {

class Forms : public DesktopForms {
  void createMainForm(const RunPaths& paths) override {
    Principal = &mainForm_.emplace(nullptr, paths.dataFile, paths.typologyFile, paths.outputFile,
                                   paths.markerFile);
    QObject::connect(Principal, &QDialog::finished, [] { QCoreApplication::exit(); });
  }
  void createInputForm() override { frmCalculo = &inputForm_.emplace(nullptr); }
  void showMainForm() override { Principal->show(); }
  void loop() override { QApplication::exec(); }

  std::optional<TPrincipal> mainForm_;
  std::optional<TfrmCalculo> inputForm_;
};

}  // namespace

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

    Forms forms;
    startUp(platformCommandLine(argc, argv), forms);
  });
}
