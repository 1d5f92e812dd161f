#pragma once

#include <string>

#include "core/fault.h"

/// What is said of a file that the system refuses. The place is the file as a whole.
Fault cannotOpenForReading(const std::string& path);
Fault cannotRead(const std::string& path);
Fault cannotOpenForWriting(const std::string& path);
Fault cannotWrite(const std::string& path);
