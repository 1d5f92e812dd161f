#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "faults/promise.h"
#include "faults/run_under.h"
#include "faults/scenarios.h"

// The promise in hostile surroundings, kept by the real program.

namespace fs = std::filesystem;

namespace {

const std::string kCli = TIP2BDL_CLI;

std::string error(const std::string& message) { return kErrorCaption + message + "\n"; }

std::string cannotWrite(const std::string& path) {
  return error("Error al abrir fichero de escritura: " + path);
}

class Surroundings : public testing::Test {
 protected:
  FaultedRun run(const RunOptions& options = {}) const {
    return runUnder(kCli, place_.arguments(), options);
  }
  FaultedRun runWith(std::size_t index, const std::string& path,
                     const RunOptions& options = {}) const {
    std::vector<std::string> arguments = place_.arguments();
    arguments[index] = path;
    return runUnder(kCli, arguments, options);
  }

  void expectMessage(const std::string& message, const FaultedRun& run) const {
    const Verdict verdict = judge(place_, run);
    EXPECT_EQ("", verdict.why);
    EXPECT_EQ(message, run.err);
    EXPECT_EQ(3, run.status);
  }
  void expectComplete(const FaultedRun& run) const {
    const Verdict verdict = judge(place_, run);
    EXPECT_EQ("", verdict.why);
    EXPECT_EQ(Ending::kComplete, verdict.ending) << run.err;
  }
  /// One of the two, whichever.
  Verdict expectPromise(const FaultedRun& run, bool silent = false) const {
    const Verdict verdict = judge(place_, run, silent);
    EXPECT_EQ("", verdict.why);
    return verdict;
  }

  std::string path(const std::string& name) const { return place_.folder() / name; }

  Workplace place_;
};

enum Argument : std::size_t { kTemplate, kTypology, kOutput, kMarker };

}  // namespace

TEST_F(Surroundings, NothingIsInTheWay) { expectComplete(run()); }

// Devices and folders.

TEST_F(Surroundings, AFullDeviceTakesNoOutput) {
  expectMessage(error("Error al escribir fichero: /dev/full"), runWith(kOutput, "/dev/full"));
}

TEST_F(Surroundings, AnEmptyMarkerFitsOnAFullDevice) {
  const FaultedRun result = runWith(kMarker, "/dev/full");
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.err);
  EXPECT_TRUE(place_.outputIsComplete());
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(Surroundings, AMissingFolderIsNamedWithTheFile) {
  expectMessage(cannotWrite("no-existe/salida.bdl"), runWith(kOutput, "no-existe/salida.bdl"));
  place_.reset();
  const FaultedRun result = runWith(kMarker, "no-existe/fin.txt");
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite("no-existe/fin.txt"), result.err);
  EXPECT_TRUE(place_.outputIsComplete());
}

TEST_F(Surroundings, AFolderInPlaceOfAnInputIsNoInput) {
  const struct {
    const char* name;
    const char* message;
  } cases[] = {
      {"casa.bdl", "No existe el fichero de datos *.bdl"},
      {"casa.tbl", "No existe el fichero de datos *.tbl"},
      {"casa.tip", "No existe el fichero de datos *.tip"},
      {"defectos.inp", "No existe el fichero de librería defectos.inp"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    fs::remove(path(c.name));
    fs::create_directory(path(c.name));
    const FaultedRun result = run();
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(error(c.message), result.err);
    EXPECT_FALSE(place_.hasMarker());
    EXPECT_EQ(Workplace::kOldOutput, place_.folder().read("salida.bdl"));
    fs::remove(path(c.name));
    place_.folder().write(c.name, place_.input(c.name));
  }
}

TEST_F(Surroundings, AFolderInPlaceOfTheOutputOrTheMarkerIsAnError) {
  fs::create_directory(path("carpeta"));
  expectMessage(cannotWrite(path("carpeta")), runWith(kOutput, path("carpeta")));
  const FaultedRun result = runWith(kMarker, path("carpeta"));
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite(path("carpeta")), result.err);
}

TEST_F(Surroundings, AFolderInPlaceOfTheLogIsNobodysError) {
  fs::create_directory(path("Error.log"));
  expectComplete(run());
}

TEST_F(Surroundings, AFolderThatIsGoneHasNoFiles) {
  RunOptions options;
  const std::string gone = path("desaparecida");
  options.inChild = [gone] {
    const bool inside = mkdir(gone.c_str(), 0700) == 0 && chdir(gone.c_str()) == 0;
    if (!inside || rmdir(gone.c_str()) != 0) _exit(126);
  };
  expectMessage(error("No existe el fichero de datos *.bdl"),
                runWith(kTemplate, "casa.bdl", options));
  expectMessage(cannotWrite("salida.bdl"), runWith(kOutput, "salida.bdl", options));
  place_.reset();
  const FaultedRun result = runWith(kMarker, "fin.txt", options);
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite("fin.txt"), result.err);
}

TEST_F(Surroundings, NamesThatAreTooLongForTheSystemAreErrors) {
  const std::string longName(300, 'x');
  expectMessage(cannotWrite(path(longName)), runWith(kOutput, path(longName)));
  expectMessage(error("No existe el fichero de datos *.tip"), runWith(kTypology, path(longName)));
}

// One file in two places.

TEST_F(Surroundings, TheTemplateMayBeItsOwnOutput) {
  const FaultedRun result = runWith(kOutput, path("casa.bdl"));
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(place_.folder().read("casa.bdl") == place_.expectedOutput());
}

TEST_F(Surroundings, OutputAndMarkerMayBothBeTheNullDevice) {
  std::vector<std::string> arguments = place_.arguments();
  arguments[kOutput] = arguments[kMarker] = "/dev/null";
  EXPECT_EQ(0, runUnder(kCli, arguments).status);
}

// Links.

TEST_F(Surroundings, LinksAreFollowed) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    fs::rename(path(name), path(std::string("de-verdad-") + name));
    fs::create_symlink(std::string("de-verdad-") + name, path(name));
  }
  fs::rename(path("salida.bdl"), path("de-verdad-salida.bdl"));
  fs::create_symlink("de-verdad-salida.bdl", path("salida.bdl"));
  fs::create_symlink("de-verdad-fin.txt", path("fin.txt"));  // to nothing as yet
  expectComplete(run());
  EXPECT_TRUE(fs::is_symlink(path("salida.bdl")));
  EXPECT_TRUE(place_.folder().read("de-verdad-salida.bdl") == place_.expectedOutput());
  EXPECT_TRUE(fs::is_regular_file(path("de-verdad-fin.txt")));
}

TEST_F(Surroundings, ALinkToItselfIsAnError) {
  fs::create_symlink("bucle", path("bucle"));
  expectMessage(cannotWrite(path("bucle")), runWith(kOutput, path("bucle")));
  expectMessage(error("No existe el fichero de datos *.tip"), runWith(kTypology, path("bucle")));
}

// Inputs without an end.

TEST_F(Surroundings, AnInputThatNeverEndsIsAnError) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    SCOPED_TRACE(name);
    fs::remove(path(name));
    fs::create_symlink("/dev/zero", path(name));
    const FaultedRun result = run();
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(error("Error en el fichero " + path(name) + ", línea 1: contiene un carácter nulo"),
              result.err);
    EXPECT_FALSE(place_.hasMarker());
    fs::remove(path(name));
    place_.folder().write(name, place_.input(name));
  }
}

TEST_F(Surroundings, APipeIsNoInputWhetherOrNotSomebodyWritesIntoIt) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    SCOPED_TRACE(name);
    fs::remove(path(name));
    ASSERT_EQ(0, mkfifo(path(name).c_str(), 0600));
    const std::string message = error("Error al abrir fichero de lectura: " + path(name));
    FaultedRun result = run();
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(message, result.err);

    const int bothEnds = open(path(name).c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(5, write(bothEnds, "hola\n", 5));
    result = run();
    close(bothEnds);
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(message, result.err);
    EXPECT_FALSE(place_.hasMarker());
    fs::remove(path(name));
    place_.folder().write(name, place_.input(name));
  }
}

TEST_F(Surroundings, AFileLargerThanTheMemoryIsAnError) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer ends the program itself when an allocation is too large";
#endif
  std::error_code unable;
  fs::resize_file(path("casa.tip"), std::uintmax_t{1} << 42, unable);  // a hole, on no disk
  if (unable) GTEST_SKIP() << "no files of that size here";
  const FaultedRun result = run();
  EXPECT_FALSE(result.timedOut);
  EXPECT_EQ(3, result.status);
  EXPECT_TRUE(result.err == error("No hay memoria suficiente") ||
              result.err.ends_with("contiene un carácter nulo\n"))
      << result.err;
  EXPECT_FALSE(place_.hasMarker());
}

TEST_F(Surroundings, APipeTakesTheOutput) {
  ASSERT_EQ(0, mkfifo(path("tubo").c_str(), 0600));
  std::string taken;
  std::thread reader([&] { taken = readFile(path("tubo")); });
  const FaultedRun result = runWith(kOutput, path("tubo"));
  reader.join();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(taken == place_.expectedOutput());
}

TEST_F(Surroundings, APipeWaitsForItsReader) {
  ASSERT_EQ(0, mkfifo(path("tubo").c_str(), 0600));
  RunOptions impatient;
  impatient.patienceMs = 1000;
  for (const Argument argument : {kOutput, kMarker}) {
    place_.reset();
    EXPECT_TRUE(runWith(argument, path("tubo"), impatient).timedOut);
    EXPECT_EQ(argument == kMarker, place_.outputIsComplete());
    EXPECT_FALSE(place_.hasMarker());
  }
  int marker = -1;
  std::thread reader([&] { marker = open(path("tubo").c_str(), O_RDONLY | O_CLOEXEC); });
  const FaultedRun result = runWith(kMarker, path("tubo"));
  reader.join();
  close(marker);
  EXPECT_EQ(0, result.status) << result.err;
}

TEST_F(Surroundings, APipeWhoseReaderGoesIsAWriteError) {
  ASSERT_EQ(0, mkfifo(path("tubo").c_str(), 0600));
  const int readEnd = open(path("tubo").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  const int holds = fcntl(readEnd, F_SETPIPE_SZ, 1);
  ASSERT_LT(static_cast<std::size_t>(holds), place_.expectedOutput().size());
  std::thread reader([readEnd] {
    pollfd written = {readEnd, POLLIN, 0};
    poll(&written, 1, -1);
    close(readEnd);
  });
  const FaultedRun result = runWith(kOutput, path("tubo"));
  reader.join();
  expectMessage(error("Error al escribir fichero: " + path("tubo")), result);
}

// Standard streams.

TEST_F(Surroundings, ClosedStandardStreamsChangeNothing) {
  for (int closed = 1; closed < 8; ++closed) {
    SCOPED_TRACE("a bit for each closed stream: " + std::to_string(closed));
    RunOptions options;
    options.inChild = [closed] {
      for (int stream = 0; stream < 3; ++stream) {
        if ((closed >> stream & 1) != 0) close(stream);
      }
    };
    place_.reset();
    expectComplete(run(options));
    EXPECT_EQ("", place_.folder().read("Error.log"));

    place_.reset();
    const FaultedRun failed = runWith(kTypology, path("no-existe.tip"), options);
    const bool silent = (closed & 4) != 0;
    expectPromise(failed, silent);
    EXPECT_EQ(3, failed.status);
    if (!silent) {
      EXPECT_EQ(error("No existe el fichero de datos *.tip"), failed.err);
    }
    EXPECT_EQ("", place_.folder().read("Error.log"));
  }
}

TEST_F(Surroundings, AMessageThatNobodyCanReadStillEndsWithThree) {
  RunOptions fullDevice;
  fullDevice.inChild = [] { dup2(open("/dev/full", O_WRONLY), STDERR_FILENO); };
  RunOptions brokenPipe;
  brokenPipe.inChild = [] {
    int ends[2];
    if (pipe(ends) != 0) _exit(126);
    dup2(ends[1], STDERR_FILENO);
    close(ends[0]);
    close(ends[1]);
  };
  for (const RunOptions& options : {fullDevice, brokenPipe}) {
    const FaultedRun result = runWith(kTypology, path("no-existe.tip"), options);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(0, result.signal);
    EXPECT_FALSE(place_.hasMarker());
  }
}

TEST_F(Surroundings, AnAnswerThatCannotBeWrittenIsAnError) {
  RunOptions options;
  options.inChild = [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); };
  for (const char* question : {"--help", "--version"}) {
    SCOPED_TRACE(question);
    const FaultedRun result = runUnder(kCli, {question}, options);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(error("Error al escribir en la salida estándar"), result.err);
  }
}

// Permissions, which stop everybody but root.

namespace {

/// Becomes nobody in the child when this process is root.
void becomeNobody() {
  if (geteuid() != 0) return;
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(126);
}

class Permissions : public Surroundings {
 protected:
  void SetUp() override {
    options_.inChild = becomeNobody;
    // Nobody is to own what it may write: the folder of the run, and the earlier output.
    fs::permissions(place_.folder().path(), fs::perms::all);
    fs::permissions(path("salida.bdl"), fs::perms::all);
    const FaultedRun probe = runUnder(kCli, {"--version"}, options_);
    if (probe.status != 0) GTEST_SKIP() << "nobody cannot start the program in this build folder";
  }
  void deny(const std::string& name) const { fs::permissions(path(name), fs::perms::none); }
  RunOptions options_;
};

}  // namespace

TEST_F(Permissions, AllowARun) { expectComplete(run(options_)); }

TEST_F(Permissions, AnInputThatMayNotBeReadIsAnError) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    SCOPED_TRACE(name);
    deny(name);
    const FaultedRun result = run(options_);
    fs::permissions(path(name), fs::perms::all);
    expectMessage(error("Error al abrir fichero de lectura: " + path(name)), result);
  }
}

TEST_F(Permissions, AFolderThatMayNotBeEnteredHasNoInputs) {
  fs::create_directory(path("cerrada"));
  place_.folder().write("cerrada/casa.tip", place_.input("casa.tip"));
  deny("cerrada");
  const FaultedRun result = runWith(kTypology, path("cerrada/casa.tip"), options_);
  fs::permissions(path("cerrada"), fs::perms::all);
  expectMessage(error("No existe el fichero de datos *.tip"), result);
}

TEST_F(Permissions, AFolderThatMayNotBeWrittenTakesNeitherOutputNorMarker) {
  fs::create_directory(path("solo-lectura"));
  fs::permissions(path("solo-lectura"), fs::perms::owner_read | fs::perms::owner_exec |
                                            fs::perms::others_read | fs::perms::others_exec);
  const std::string output = path("solo-lectura/salida.bdl");
  expectMessage(cannotWrite(output), runWith(kOutput, output, options_));

  const std::string marker = path("solo-lectura/fin.txt");
  const FaultedRun result = runWith(kMarker, marker, options_);
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite(marker), result.err);
  EXPECT_TRUE(place_.outputIsComplete());
}

TEST_F(Permissions, AnOutputThatMayNotBeWrittenStaysAsItWas) {
  deny("salida.bdl");
  const FaultedRun result = run(options_);
  fs::permissions(path("salida.bdl"), fs::perms::all);
  expectMessage(cannotWrite(path("salida.bdl")), result);
  EXPECT_EQ(Workplace::kOldOutput, place_.folder().read("salida.bdl"));
}

TEST_F(Permissions, ALogThatMayNotBeWrittenIsNobodysError) {
  place_.folder().write("Error.log", "de antes");
  deny("Error.log");
  expectComplete(run(options_));
}

// Limits of the machine.

namespace {

void limitTo(__rlimit_resource_t what, rlim_t most) {
  const rlimit limit = {most, most};
  if (setrlimit(what, &limit) != 0) _exit(126);
}

RunOptions limitedTo(__rlimit_resource_t what, rlim_t most) {
  RunOptions options;
  options.inChild = [what, most] { limitTo(what, most); };
  return options;
}

}  // namespace

TEST_F(Surroundings, AFileSizeLimitIsAWriteError) {
  const rlim_t size = place_.expectedOutput().size();
  for (const rlim_t limit : {rlim_t{0}, rlim_t{1}, rlim_t{4096}, rlim_t{16384}, size - 1}) {
    SCOPED_TRACE("limit " + std::to_string(limit));
    place_.reset();
    const bool noRoomForTheMessage = limit < 1000;
    const FaultedRun result = run(limitedTo(RLIMIT_FSIZE, limit));
    expectPromise(result, noRoomForTheMessage);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ("", place_.folder().read("salida.bdl"));
    if (!noRoomForTheMessage) {
      EXPECT_EQ(error("Error al escribir fichero: " + path("salida.bdl")), result.err);
    }
  }
  place_.reset();
  expectComplete(run(limitedTo(RLIMIT_FSIZE, size)));
}

TEST_F(Surroundings, ALimitOnOpenFilesIsAnError) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer needs files of its own";
#endif
  int complete = 0;
  int failed = 0;
  for (rlim_t limit = 4; limit < 12; ++limit) {  // the loader needs the first
    SCOPED_TRACE("limit " + std::to_string(limit));
    place_.reset();
    RunOptions options;
    options.inChild = [limit] {
      close_range(3, ~0U, 0);  // what this process has got from its own caller
      limitTo(RLIMIT_NOFILE, limit);
    };
    const Verdict verdict = expectPromise(run(options));
    ++(verdict.ending == Ending::kComplete ? complete : failed);
  }
  EXPECT_GT(complete, 0);
  EXPECT_GT(failed, 0);
}

TEST_F(Surroundings, AMemoryLimitIsAnError) {
#ifdef SANITIZED
  GTEST_SKIP() << "a sanitizer reserves terabytes of addresses";
#endif
  constexpr rlim_t kPage = 4096;
  const rlim_t step = longTests() ? kPage : 8 * kPage;
  int complete = 0;
  int failed = 0;
  // From plenty down to where the system cannot even load the program.
  for (rlim_t limit = rlim_t{8} << 20; limit > 0; limit -= step) {
    SCOPED_TRACE("limit " + std::to_string(limit));
    place_.reset();
    const FaultedRun result = run(limitedTo(RLIMIT_AS, limit));
    const bool notLoaded =
        result.status == 127 || result.signal == SIGSEGV || result.signal == SIGKILL;
    if (notLoaded) {
      // Whether it was the loader: then the program cannot say its version either.
      const FaultedRun probe = runUnder(kCli, {"--version"}, limitedTo(RLIMIT_AS, limit));
      ASSERT_NE(0, probe.status) << result.status << " " << result.signal << " " << result.err;
      ASSERT_NE(3, probe.status);
      break;
    }
    const Verdict verdict = expectPromise(result);
    ++(verdict.ending == Ending::kComplete ? complete : failed);
    if (verdict.ending == Ending::kMessage) {
      EXPECT_TRUE(result.err == error("No hay memoria suficiente") ||
                  result.err.starts_with(error("Error al abrir fichero de ").substr(0, 50)))
          << result.err;
    }
  }
  std::printf("memory limits: %d complete, %d with a message\n", complete, failed);
  EXPECT_GT(complete, 0);
  EXPECT_GT(failed, 0);
}

TEST_F(Surroundings, AFullDiskTakesNeitherOutputNorMarker) {
  fs::create_directory(path("disco"));
  const auto smallDisk = [this](const char* size) {
    RunOptions options;
    const std::string where = path("disco");
    options.inChild = [where, size] {
      // A disk of the child's own, gone with it. 77: not here.
      if (unshare(CLONE_NEWNS) != 0) _exit(77);
      if (mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) _exit(77);
      if (mount("", where.c_str(), "tmpfs", 0, size) != 0) _exit(77);
    };
    return options;
  };
  const std::string output = path("disco/salida.bdl");
  FaultedRun result = runWith(kOutput, output, smallDisk("size=8k"));
  if (result.status == 77) GTEST_SKIP() << "no disks can be mounted here";
  expectMessage(error("Error al escribir fichero: " + output), result);

  expectMessage(cannotWrite(output), runWith(kOutput, output, smallDisk("nr_inodes=1")));

  result = runWith(kOutput, output, smallDisk("size=64k"));
  EXPECT_EQ(0, result.status) << result.err;

  place_.reset();
  const std::string marker = path("disco/fin.txt");
  result = runWith(kMarker, marker, smallDisk("nr_inodes=1"));
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite(marker), result.err);
  EXPECT_TRUE(place_.outputIsComplete());
}

// Other processes.

TEST_F(Surroundings, ARunKilledAtAnyMomentHasAMarkerOnlyWithACompleteOutput) {
  std::mt19937 random(20'240'501);
  std::uniform_int_distribution<int> moment(0, 9000);  // microseconds; a run takes about 4000
  const int runs = longTests() ? 2000 : 100;
  int killed = 0;
  for (int i = 0; i < runs; ++i) {
    place_.reset();
    RunOptions options;
    options.killAfterMicroseconds = moment(random);
    const FaultedRun result = run(options);
    SCOPED_TRACE("killed after " + std::to_string(options.killAfterMicroseconds) + " us");
    if (result.signal == SIGKILL) ++killed;
    EXPECT_EQ("", place_.touchedInputs());
    EXPECT_TRUE(!place_.hasMarker() || place_.outputIsComplete());
  }
  EXPECT_GT(killed, 0);
}

TEST_F(Surroundings, RunsAtTheSameTimeDoNotDisturbEachOther) {
  constexpr int kRuns = 8;
  std::vector<std::thread> threads;
  std::vector<FaultedRun> results(kRuns);
  for (std::size_t i = 0; i < kRuns; ++i) {
    threads.emplace_back([this, i, &results] {
      std::vector<std::string> arguments = place_.arguments();
      arguments[kOutput] = path("salida-" + std::to_string(i));
      arguments[kMarker] = path("fin-" + std::to_string(i));
      results[i] = runUnder(kCli, arguments);
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < kRuns; ++i) {
    EXPECT_EQ(0, results[i].status) << results[i].err;
    EXPECT_EQ("", results[i].err);
    EXPECT_TRUE(place_.folder().read("salida-" + std::to_string(i)) == place_.expectedOutput());
    EXPECT_TRUE(place_.folder().has("fin-" + std::to_string(i)));
  }
  EXPECT_EQ("", place_.touchedInputs());
}
