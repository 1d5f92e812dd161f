#include "fault_plan.h"

#include <errno.h>
#include <signal.h>
#include <stdlib.h>
#include <string.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

struct Plan {
  char call[32] = "";
  char files[256] = "";
  long at = 0;
  int error = 0;
  int report = -1;
  char kind[8] = "";
  bool armed = false;
};

Plan plan;
long calls = 0;
bool inMain = false;
bool filesHaveBegun = false;   // one of the plan's files has been met
const char* inside = nullptr;  // the C library function that the program is in

struct OpenStream {
  const FILE* stream;
  char name[64];
};
OpenStream openStreams[64];

bool is(const char* kind) { return strcmp(plan.kind, kind) == 0; }

const char* baseName(const char* path) {
  const char* slash = strrchr(path, '/');
  return slash != nullptr ? slash + 1 : path;
}

bool isOfRun(const char* path) {
  if (strncmp(path, plan.files, strlen(plan.files)) != 0) return false;
  filesHaveBegun = true;
  return true;
}

void report(const char* call, const char* subject) {
  char line[160] = "";
  strcat(line, call);
  strcat(line, " ");
  strncat(line, subject, 100);
  strcat(line, "\n");
  syscall(SYS_write, plan.report, line, strlen(line));
}

__attribute__((constructor)) void readPlan() {
  const char* call = getenv("FAULT_CALL");
  const char* at = getenv("FAULT_AT");
  const char* error = getenv("FAULT_ERRNO");
  const char* kind = getenv("FAULT_KIND");
  const char* file = getenv("FAULT_REPORT");
  const char* files = getenv("FAULT_FILES");
  if (call == nullptr || at == nullptr || error == nullptr || kind == nullptr || file == nullptr ||
      files == nullptr) {
    return;
  }
  strncpy(plan.call, call, sizeof plan.call - 1);
  strncpy(plan.kind, kind, sizeof plan.kind - 1);
  strncpy(plan.files, files, sizeof plan.files - 1);
  plan.at = strtol(at, nullptr, 10);
  plan.error = static_cast<int>(strtol(error, nullptr, 10));
  plan.report = static_cast<int>(strtol(file, nullptr, 10));
  filesHaveBegun = *plan.files == '\0';
  plan.armed = true;
}

}  // namespace

Subject fileAt(const char* path) { return {baseName(path), isOfRun(path)}; }

Subject fileOf(const FILE* stream) {
  if (stream == stderr) return thing("stderr");
  if (stream == stdout) return thing("stdout");
  for (const OpenStream& slot : openStreams) {
    if (slot.stream == stream) return {slot.name, true};
  }
  return {"?", *plan.files == '\0'};
}

Subject fileOf(int descriptor) {
  return thing(descriptor == 2 ? "stderr" : descriptor == 1 ? "stdout" : "?");
}

Subject allocation() { return thing(!inMain ? "startup" : inside != nullptr ? inside : "program"); }

Subject thing(const char* name) { return {name, filesHaveBegun}; }

bool strikes(const char* call, Subject subject) {
  if (!plan.armed || !subject.counts || strcmp(call, plan.call) != 0) return false;
  ++calls;
  if (calls != plan.at && !(is("sticky") && calls > plan.at)) return false;
  if (calls == plan.at) report(call, subject.name);
  if (is("kill")) syscall(SYS_kill, getpid(), SIGKILL);
  setError();
  return true;
}

bool halfIsDone() { return is("short"); }

void setError() { errno = plan.error; }

void remember(const FILE* stream, const char* path) {
  if (!isOfRun(path)) return;
  for (OpenStream& slot : openStreams) {
    if (slot.stream != nullptr) continue;
    slot.stream = stream;
    strncpy(slot.name, baseName(path), sizeof slot.name - 1);
    return;
  }
}

void forget(const FILE* stream) {
  for (OpenStream& slot : openStreams) {
    if (slot.stream == stream) slot = {};
  }
}

void noteMain() {
  inMain = true;
  strikes("main", {"begins", true});
}

Inside::Inside(const char* call) : before_(inside) { inside = call; }
Inside::~Inside() { inside = before_; }
