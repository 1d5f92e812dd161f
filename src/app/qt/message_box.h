#pragma once

#include <string_view>

/// Shows `text` in a modal box titled `caption` with one button, "Aceptar", and returns when the
/// box has been dismissed: by its button, Return, Escape or its close box. Both are plain text,
/// bytes as cp1252::toUtf8 reads them. Needs a QApplication.
void showMessageBox(std::string_view text, std::string_view caption);
