
#include <optional>

#include "app/desktop/platform_command_line.h"
#include "app/desktop/start_up.h"
#include "app/run_safely.h"
#include "app/win32/desktop_application.h"
#include "app/win32/frm_calculo.h"
#include "app/win32/principal.h"

int main(int argc, char* argv[]) {
  DesktopApplication application;
  Application = &application;
  return runSafely([&]() -> int {
    const INITCOMMONCONTROLSEX controls = {sizeof controls,
                                           ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    std::optional<TPrincipal> mainForm;  // the forms are there for as long as the process
    std::optional<TfrmCalculo> inputForm;
    startUp(platformCommandLine(argc, argv), [&](const RunPaths& paths) {
      Principal = &mainForm.emplace(nullptr, paths, [] { PostQuitMessage(0); });
      frmCalculo = &inputForm.emplace(nullptr);
      Principal->show();
      runMessageLoop();
    });
  });
}
