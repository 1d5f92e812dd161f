#include "app/desktop/start_up.h"

#include "app/completion_marker.h"
#include "core/platform.h"

void startUp(std::string_view commandLine, DesktopForms& forms) {
  const RunPaths paths = splitCommandLine(commandLine);
  forms.createMainForm(paths);
  forms.createInputForm();
  forms.showMainForm();
  forms.loop();
  createCompletionMarker(paths.markerFile);
  // Who sees the marker is told no other thing: taking the forms down could still fail.
  Application->Terminate(0);
}
