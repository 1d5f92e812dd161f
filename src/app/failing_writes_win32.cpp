#include "app/failing_writes.h"

void letWritesFail() {}  // they do
