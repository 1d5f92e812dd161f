#pragma once

#include <string>

#include "app/console/works/work.h"

/// Manual pages in roff, written by the table of works and options. UTF-8.

enum class Language { kSpanish, kEnglish };

/// tip2bdl-cli(1)
std::string pageOfRun(Language language);
/// tip2bdl-cli-WORK(1)
std::string pageOf(const Work& work, Language language);
/// tip2bdl(1), the desktop program.
std::string pageOfDesktop(Language language);
