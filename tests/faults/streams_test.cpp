#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "faults/surroundings.h"

// Standard streams that are closed, full or without a reader.

namespace {
class Streams : public Surroundings {};
class StreamsOfTheConsole : public Surroundings {};
}  // namespace

TEST_P(Streams, ClosedStandardStreamsChangeNothing) {
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

TEST_P(Streams, AMessageThatNobodyCanReadStillEndsWithThree) {
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

TEST_P(StreamsOfTheConsole, AnAnswerThatCannotBeWrittenIsAnError) {
  RunOptions options;
  options.inChild = [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); };
  for (const char* question : {"--help", "--version"}) {
    SCOPED_TRACE(question);
    const FaultedRun result = runUnder(kConsole.file, {question}, options);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(error("Error al escribir en la salida estándar"), result.err);
  }
}

INSTANTIATE_TEST_SUITE_P(Of, Streams, testing::ValuesIn(kPrograms), programName);
INSTANTIATE_TEST_SUITE_P(Of, StreamsOfTheConsole, testing::Values(kConsole), programName);
