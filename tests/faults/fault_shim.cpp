// Preloaded into a program under test: makes the Nth call of one function of the C library fail, as
// a full disk, a broken device or an empty memory would. What the C library calls inside itself is
// out of its reach; the system calls (traced_run.h) are the level below.
//
// Told by the environment:
//   FAULT_CALL   name of the function (one of those at the end of this file); "main" is only
//                reported, and nothing fails
//   FAULT_AT     which call of it, from 1
//   FAULT_ERRNO  number of the error
//   FAULT_KIND   "fail", "short" (half of a read or write is done) or "sticky" (all later calls
//   fail
//                too)
//   FAULT_REPORT number of an open file: it gets the line "CALL SUBJECT" once the fault comes.
//                The subject is the file's name, "stderr", or, of an allocation, who asked for it:
//                "startup" (before main), the C library function that did, or "program". Empty: the
//                call number was never reached.

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <iconv.h>
#include <locale.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdio_ext.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

// Some of these are macros or have inline forms; here they are plain functions.
#undef errno
#define errno (*__errno_location())

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* old, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
}

namespace {

struct Plan {
  char call[32] = "";
  long at = 0;
  int error = 0;
  int report = -1;
  bool isShort = false;
  bool sticky = false;
  bool armed = false;
};

Plan plan;
long calls = 0;
bool inMain = false;
const char* inside = nullptr;  // the C library function that the program is in

/// Names of the files behind open streams, for the report.
struct OpenStream {
  const FILE* stream;
  char name[64];
};
OpenStream openStreams[64];

const char* baseName(const char* path) {
  const char* slash = strrchr(path, '/');
  return slash != nullptr ? slash + 1 : path;
}

void remember(const FILE* stream, const char* path) {
  for (OpenStream& slot : openStreams) {
    if (slot.stream != nullptr) continue;
    slot.stream = stream;
    strncpy(slot.name, baseName(path), sizeof slot.name - 1);
    return;
  }
}

const char* nameOf(const FILE* stream) {
  if (stream == stderr) return "stderr";
  if (stream == stdout) return "stdout";
  for (const OpenStream& slot : openStreams) {
    if (slot.stream == stream) return slot.name;
  }
  return "?";
}

void forget(const FILE* stream) {
  for (OpenStream& slot : openStreams) {
    if (slot.stream == stream) slot = {};
  }
}

const char* descriptorName(int file) { return file == 2 ? "stderr" : file == 1 ? "stdout" : "?"; }

void report(const char* call, const char* subject) {
  char line[160] = "";
  strcat(line, call);
  strcat(line, " ");
  strncat(line, subject, 100);
  strcat(line, "\n");
  syscall(SYS_write, plan.report, line, strlen(line));
}

/// Whether this call is the one to fail.
bool strikes(const char* call, const char* subject) {
  if (!plan.armed || strcmp(call, plan.call) != 0) return false;
  ++calls;
  if (calls != plan.at && !(plan.sticky && calls > plan.at)) return false;
  if (calls == plan.at) report(call, subject);
  errno = plan.error;
  return true;
}

void markError(FILE* stream) {
  constexpr int kErrorSeen = 0x20;  // the C library's own flag, what ferror looks at
  stream->_flags |= kErrorSeen;
}

/// The function of the C library that `name` stands for.
template <typename Function>
Function* real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Names the function while the program is in it, so that an allocation can say who asked for it.
class Inside {
 public:
  explicit Inside(const char* call) : before_(inside) { inside = call; }
  ~Inside() { inside = before_; }
  Inside(const Inside&) = delete;
  Inside& operator=(const Inside&) = delete;

 private:
  const char* before_;
};

const char* whoAllocates() { return !inMain ? "startup" : inside != nullptr ? inside : "program"; }

__attribute__((constructor)) void readPlan() {
  const char* call = getenv("FAULT_CALL");
  const char* at = getenv("FAULT_AT");
  const char* error = getenv("FAULT_ERRNO");
  const char* kind = getenv("FAULT_KIND");
  const char* file = getenv("FAULT_REPORT");
  if (call == nullptr || at == nullptr || error == nullptr || kind == nullptr || file == nullptr) {
    return;
  }
  strncpy(plan.call, call, sizeof plan.call - 1);
  plan.at = atol(at);
  plan.error = atoi(error);
  plan.report = atoi(file);
  plan.isShort = strcmp(kind, "short") == 0;
  plan.sticky = strcmp(kind, "sticky") == 0;
  plan.armed = true;
}

int (*mainOfProgram)(int, char**, char**) = nullptr;

int markedMain(int argc, char** argv, char** environment) {
  inMain = true;
  strikes("main", "begins");
  return mainOfProgram(argc, argv, environment);
}

}  // namespace

// The functions that can be made to fail. None throws; the headers say so of some of them only.
#define FAILS(call, subject, result) \
  if (strikes(call, subject)) return result

extern "C" {

int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(),
                      void (*fini)(), void (*loaderFini)(), void* stackEnd) {
  mainOfProgram = main;
  return real<decltype(__libc_start_main)>("__libc_start_main")(markedMain, argc, argv, init, fini,
                                                                loaderFini, stackEnd);
}

void* malloc(size_t size) noexcept {
  FAILS("malloc", whoAllocates(), nullptr);
  return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) noexcept {
  FAILS("calloc", whoAllocates(), nullptr);
  return __libc_calloc(count, size);
}

void* realloc(void* old, size_t size) noexcept {
  FAILS("realloc", whoAllocates(), nullptr);
  return __libc_realloc(old, size);
}

void* aligned_alloc(size_t alignment, size_t size) noexcept {
  FAILS("aligned_alloc", whoAllocates(), nullptr);
  return __libc_memalign(alignment, size);
}

FILE* fopen(const char* path, const char* mode) {
  FAILS("fopen", baseName(path), nullptr);
  const Inside here("fopen");
  FILE* stream = real<decltype(fopen)>("fopen")(path, mode);
  if (stream != nullptr) remember(stream, path);
  return stream;
}

FILE* fopen64(const char* path, const char* mode) { return fopen(path, mode); }

size_t fread(void* to, size_t size, size_t count, FILE* stream) {
  const Inside here("fread");
  if (strikes("fread", nameOf(stream))) {
    if (plan.isShort) return real<decltype(fread)>("fread")(to, size, count / 2, stream);
    markError(stream);
    return 0;
  }
  return real<decltype(fread)>("fread")(to, size, count, stream);
}

size_t __fread_chk(void* to, size_t, size_t size, size_t count, FILE* stream) {
  return fread(to, size, count, stream);
}

char* fgets(char* to, int size, FILE* stream) {
  const Inside here("fgets");
  if (strikes("fgets", nameOf(stream))) {
    markError(stream);
    return nullptr;
  }
  return real<decltype(fgets)>("fgets")(to, size, stream);
}

int fgetc(FILE* stream) {
  const Inside here("fgetc");
  if (strikes("fgetc", nameOf(stream))) {
    markError(stream);
    return EOF;
  }
  return real<decltype(fgetc)>("fgetc")(stream);
}

int fseek(FILE* stream, long offset, int from) {
  FAILS("fseek", nameOf(stream), -1);
  const Inside here("fseek");
  return real<decltype(fseek)>("fseek")(stream, offset, from);
}

size_t fwrite(const void* from, size_t size, size_t count, FILE* stream) {
  const Inside here("fwrite");
  if (strikes("fwrite", nameOf(stream))) {
    const size_t done =
        plan.isShort ? real<decltype(fwrite)>("fwrite")(from, size, count / 2, stream) : 0;
    markError(stream);
    errno = plan.error;
    return done;
  }
  return real<decltype(fwrite)>("fwrite")(from, size, count, stream);
}

int fputs(const char* text, FILE* stream) {
  const Inside here("fputs");
  if (strikes("fputs", nameOf(stream))) {
    markError(stream);
    return EOF;
  }
  return real<decltype(fputs)>("fputs")(text, stream);
}

int fputc(int c, FILE* stream) {
  const Inside here("fputc");
  if (strikes("fputc", nameOf(stream))) {
    markError(stream);
    return EOF;
  }
  return real<decltype(fputc)>("fputc")(c, stream);
}

int fflush(FILE* stream) {
  const Inside here("fflush");
  if (strikes("fflush", stream != nullptr ? nameOf(stream) : "all")) {
    if (stream != nullptr) markError(stream);
    return EOF;
  }
  return real<decltype(fflush)>("fflush")(stream);
}

/// A close that fails has lost what was not yet written.
int fclose(FILE* stream) {
  const Inside here("fclose");
  const bool lost = strikes("fclose", nameOf(stream));
  if (lost) __fpurge(stream);
  forget(stream);
  const int result = real<decltype(fclose)>("fclose")(stream);
  if (!lost) return result;
  errno = plan.error;
  return EOF;
}

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int mode = va_arg(rest, int);
  va_end(rest);
  FAILS("open", baseName(path), -1);
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int openat(int folder, const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int mode = va_arg(rest, int);
  va_end(rest);
  FAILS("openat", baseName(path), -1);
  return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode));
}

ssize_t read(int file, void* to, size_t size) {
  if (strikes("read", descriptorName(file))) {
    return plan.isShort ? syscall(SYS_read, file, to, size / 2) : -1;
  }
  return syscall(SYS_read, file, to, size);
}

ssize_t write(int file, const void* from, size_t size) {
  if (strikes("write", descriptorName(file))) {
    return plan.isShort ? syscall(SYS_write, file, from, size / 2) : -1;
  }
  return syscall(SYS_write, file, from, size);
}

ssize_t writev(int file, const iovec* parts, int count) {
  FAILS("writev", descriptorName(file), -1);
  return syscall(SYS_writev, file, parts, count);
}

int close(int file) {
  FAILS("close", descriptorName(file), -1);
  return static_cast<int>(syscall(SYS_close, file));
}

int fcntl(int file, int command, ...) {
  va_list rest;
  va_start(rest, command);
  void* argument = va_arg(rest, void*);
  va_end(rest);
  FAILS("fcntl", descriptorName(file), -1);
  return static_cast<int>(syscall(SYS_fcntl, file, command, argument));
}

int stat(const char* path, struct stat* result) noexcept {
  FAILS("stat", baseName(path), -1);
  return real<int(const char*, struct stat*)>("stat")(path, result);
}

int truncate(const char* path, off_t length) noexcept {
  FAILS("truncate", baseName(path), -1);
  return real<decltype(truncate)>("truncate")(path, length);
}

int remove(const char* path) noexcept {
  FAILS("remove", baseName(path), -1);
  return real<decltype(remove)>("remove")(path);
}

ssize_t readlink(const char* path, char* to, size_t size) noexcept {
  FAILS("readlink", baseName(path), -1);
  return real<decltype(readlink)>("readlink")(path, to, size);
}

int isatty(int file) noexcept {
  FAILS("isatty", descriptorName(file), 0);
  return real<decltype(isatty)>("isatty")(file);
}

locale_t newlocale(int mask, const char* name, locale_t base) noexcept {
  FAILS("newlocale", name, nullptr);
  const Inside here("newlocale");
  return real<decltype(newlocale)>("newlocale")(mask, name, base);
}

iconv_t iconv_open(const char* to, const char* from) {
  FAILS("iconv_open", to, reinterpret_cast<iconv_t>(-1));
  const Inside here("iconv_open");
  return real<decltype(iconv_open)>("iconv_open")(to, from);
}

size_t iconv(iconv_t converter, char** from, size_t* fromLeft, char** to, size_t* toLeft) {
  FAILS("iconv", "text", static_cast<size_t>(-1));
  const Inside here("iconv");
  return real<decltype(iconv)>("iconv")(converter, from, fromLeft, to, toLeft);
}

}  // extern "C"
