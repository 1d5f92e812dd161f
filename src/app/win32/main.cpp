#include <optional>

#include "app/desktop/platform_command_line.h"
#include "app/desktop/start_up.h"
#include "app/run_safely.h"
#include "app/win32/desktop_application.h"
#include "app/win32/frm_calculo.h"
#include "app/win32/principal.h"

namespace {

class Forms : public DesktopForms {
  void createMainForm(const RunPaths& paths) override {
    Principal = &mainForm_.emplace(nullptr, paths.dataFile, paths.typologyFile, paths.outputFile,
                                   paths.markerFile, [] { PostQuitMessage(0); });
  }
  void createInputForm() override { frmCalculo = &inputForm_.emplace(nullptr); }
  void showMainForm() override { Principal->show(); }
  void loop() override { runMessageLoop(); }

  std::optional<TPrincipal> mainForm_;
  std::optional<TfrmCalculo> inputForm_;
};

}  // namespace

int main(int argc, char* argv[]) {
  DesktopApplication application;
  Application = &application;
  return runSafely([&]() -> int {
    const INITCOMMONCONTROLSEX controls = {sizeof controls,
                                           ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    Forms forms;
    startUp(platformCommandLine(argc, argv), forms);
  });
}
