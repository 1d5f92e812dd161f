#pragma once

#include <memory>
#include <type_traits>

#include "app/win32/windows_api.h"

struct DeleteGdiObject {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteGdiObject>;
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteGdiObject>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;
