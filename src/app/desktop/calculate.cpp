#include "app/desktop/calculate.h"

#include "app/desktop/forms.h"
#include "core/platform.h"

void calculate(const std::string& typed, const std::function<void(const RunPaths&)>& runModally) {
  if (typed.empty()) {
    Application->MessageBox(input_form::kNoFile, input_form::kNoFileCaption);
    return;
  }
  runModally({typed, "", "", ""});
}
