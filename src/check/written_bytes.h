#pragma once

#include "check/finding.h"
#include "core/source_text.h"

struct WrittenFile;
class WrittenFindings;

/// The bytes of a file that is read as Windows-1252: another encoding, control characters, line
/// ends of several kinds. One finding of each, at the first place, says how often.
void compareBytes(const WrittenFile& file, WrittenFindings& findings);
/// The same of a file that has no such tokens: a template, a table, a library.
Findings bytesFindings(const SourceText& text);
