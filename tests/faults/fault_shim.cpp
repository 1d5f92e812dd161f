// Preloaded into a program under test: makes the Nth call of one function of the C library fail, as
// a full disk, a broken device or an empty memory would. What the C library calls inside itself is
// out of its reach; the system calls (traced_run.h) are the level below.

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

#include "fault_plan.h"

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* old, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
}

namespace {

void markError(FILE* stream) {
  constexpr int kErrorSeen = 0x20;  // the C library's own flag, what ferror looks at
  stream->_flags |= kErrorSeen;
}

/// The function of the C library that `name` stands for.
template <typename Function>
Function* real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

int (*mainOfProgram)(int, char**, char**) = nullptr;

int markedMain(int argc, char** argv, char** environment) {
  noteMain();
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
  FAILS("malloc", allocation(), nullptr);
  return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) noexcept {
  FAILS("calloc", allocation(), nullptr);
  return __libc_calloc(count, size);
}

void* realloc(void* old, size_t size) noexcept {
  FAILS("realloc", allocation(), nullptr);
  return __libc_realloc(old, size);
}

void* aligned_alloc(size_t alignment, size_t size) noexcept {
  FAILS("aligned_alloc", allocation(), nullptr);
  return __libc_memalign(alignment, size);
}

FILE* fopen(const char* path, const char* mode) {
  FAILS("fopen", fileAt(path), nullptr);
  const Inside here("fopen");
  FILE* stream = real<decltype(fopen)>("fopen")(path, mode);
  if (stream != nullptr) remember(stream, path);
  return stream;
}

FILE* fopen64(const char* path, const char* mode) { return fopen(path, mode); }

size_t fread(void* to, size_t size, size_t count, FILE* stream) {
  const Inside here("fread");
  if (strikes("fread", fileOf(stream))) {
    if (halfIsDone()) return real<decltype(fread)>("fread")(to, size, count / 2, stream);
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
  if (strikes("fgets", fileOf(stream))) {
    markError(stream);
    return nullptr;
  }
  return real<decltype(fgets)>("fgets")(to, size, stream);
}

int fgetc(FILE* stream) {
  const Inside here("fgetc");
  if (strikes("fgetc", fileOf(stream))) {
    markError(stream);
    return EOF;
  }
  return real<decltype(fgetc)>("fgetc")(stream);
}

int fseek(FILE* stream, long offset, int from) {
  FAILS("fseek", fileOf(stream), -1);
  const Inside here("fseek");
  return real<decltype(fseek)>("fseek")(stream, offset, from);
}

size_t fwrite(const void* from, size_t size, size_t count, FILE* stream) {
  const Inside here("fwrite");
  if (strikes("fwrite", fileOf(stream))) {
    const size_t done =
        halfIsDone() ? real<decltype(fwrite)>("fwrite")(from, size, count / 2, stream) : 0;
    markError(stream);
    setError();
    return done;
  }
  return real<decltype(fwrite)>("fwrite")(from, size, count, stream);
}

int fputs(const char* text, FILE* stream) {
  const Inside here("fputs");
  if (strikes("fputs", fileOf(stream))) {
    markError(stream);
    return EOF;
  }
  return real<decltype(fputs)>("fputs")(text, stream);
}

int fputc(int c, FILE* stream) {
  const Inside here("fputc");
  if (strikes("fputc", fileOf(stream))) {
    markError(stream);
    return EOF;
  }
  return real<decltype(fputc)>("fputc")(c, stream);
}

int fflush(FILE* stream) {
  const Inside here("fflush");
  if (strikes("fflush", stream != nullptr ? fileOf(stream) : thing("all"))) {
    if (stream != nullptr) markError(stream);
    return EOF;
  }
  return real<decltype(fflush)>("fflush")(stream);
}

/// A close that fails has lost what was not yet written.
int fclose(FILE* stream) {
  const Inside here("fclose");
  const bool lost = strikes("fclose", fileOf(stream));
  if (lost) __fpurge(stream);
  forget(stream);
  const int result = real<decltype(fclose)>("fclose")(stream);
  if (!lost) return result;
  setError();
  return EOF;
}

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int mode = va_arg(rest, int);
  va_end(rest);
  FAILS("open", fileAt(path), -1);
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int openat(int folder, const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int mode = va_arg(rest, int);
  va_end(rest);
  FAILS("openat", fileAt(path), -1);
  return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode));
}

ssize_t read(int file, void* to, size_t size) {
  if (strikes("read", fileOf(file))) {
    return halfIsDone() ? syscall(SYS_read, file, to, size / 2) : -1;
  }
  return syscall(SYS_read, file, to, size);
}

ssize_t write(int file, const void* from, size_t size) {
  if (strikes("write", fileOf(file))) {
    return halfIsDone() ? syscall(SYS_write, file, from, size / 2) : -1;
  }
  return syscall(SYS_write, file, from, size);
}

ssize_t writev(int file, const iovec* parts, int count) {
  FAILS("writev", fileOf(file), -1);
  return syscall(SYS_writev, file, parts, count);
}

int close(int file) {
  FAILS("close", fileOf(file), -1);
  return static_cast<int>(syscall(SYS_close, file));
}

int fcntl(int file, int command, ...) {
  va_list rest;
  va_start(rest, command);
  void* argument = va_arg(rest, void*);
  va_end(rest);
  FAILS("fcntl", fileOf(file), -1);
  return static_cast<int>(syscall(SYS_fcntl, file, command, argument));
}

int stat(const char* path, struct stat* result) noexcept {
  FAILS("stat", fileAt(path), -1);
  return real<int(const char*, struct stat*)>("stat")(path, result);
}

int truncate(const char* path, off_t length) noexcept {
  FAILS("truncate", fileAt(path), -1);
  return real<decltype(truncate)>("truncate")(path, length);
}

int remove(const char* path) noexcept {
  FAILS("remove", fileAt(path), -1);
  return real<decltype(remove)>("remove")(path);
}

ssize_t readlink(const char* path, char* to, size_t size) noexcept {
  FAILS("readlink", fileAt(path), -1);
  return real<decltype(readlink)>("readlink")(path, to, size);
}

int isatty(int file) noexcept {
  FAILS("isatty", fileOf(file), 0);
  return real<decltype(isatty)>("isatty")(file);
}

locale_t newlocale(int mask, const char* name, locale_t base) noexcept {
  FAILS("newlocale", thing(name), nullptr);
  const Inside here("newlocale");
  return real<decltype(newlocale)>("newlocale")(mask, name, base);
}

iconv_t iconv_open(const char* to, const char* from) {
  FAILS("iconv_open", thing(to), reinterpret_cast<iconv_t>(-1));
  const Inside here("iconv_open");
  return real<decltype(iconv_open)>("iconv_open")(to, from);
}

size_t iconv(iconv_t converter, char** from, size_t* fromLeft, char** to, size_t* toLeft) {
  FAILS("iconv", thing("text"), static_cast<size_t>(-1));
  const Inside here("iconv");
  return real<decltype(iconv)>("iconv")(converter, from, fromLeft, to, toLeft);
}

}  // extern "C"
