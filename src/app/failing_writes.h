#pragma once

/// From here on a write into a closed pipe, or beyond the largest file that is allowed, fails as
/// any other does; left alone, some systems end the process.
void letWritesFail();
