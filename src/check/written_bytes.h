#pragma once

struct WrittenFile;
class WrittenFindings;

/// The bytes of a file that is read as Windows-1252: another encoding, control characters, line
/// ends of several kinds. One finding of each, at the first place, says how often.
void compareBytes(const WrittenFile& file, WrittenFindings& findings);
