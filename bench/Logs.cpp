// A line of the debug log beside the bare system calls that such a line takes.
#include "logging/Logs.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "Parts.h"

namespace brenwick {
namespace {

struct LoggingProgram : Parts {
  LoggingProgram() : Parts("logs") { state.Debug = true; }
};

bool AppendPlainly(const std::string& path, const std::string& line) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  if (descriptor < 0) return false;
  const bool written =
      ::write(descriptor, line.data(), line.size()) == static_cast<ssize_t>(line.size());
  return ::close(descriptor) == 0 && written;
}

// "ratio" compares the medians of both, taken in turn. At most 1.2 is wanted.
void DebugWrite(benchmark::State& state) {
  LoggingProgram program;
  const std::string plain = program.data.Inside("plain.log");
  program.log.DebugWrite("UserStateChanged", "Userstate changes are NOT spoken");
  const std::string log = program.files.MakeDatedFile(program.data.DebugLogs(), 0);
  const std::string line = program.folders.Read(log);
  std::vector<double> logging;
  std::vector<double> appending;
  bool written = true;
  for (auto _ : state) {
    appending.push_back(Seconds([&] { written = AppendPlainly(plain, line) && written; }));
    logging.push_back(Seconds(
        [&] { program.log.DebugWrite("UserStateChanged", "Userstate changes are NOT spoken"); }));
    state.SetIterationTime(logging.back());
  }
  if (!written) state.SkipWithError("the plain file could not be written");
  const double append = Median(appending);
  state.counters["ratio"] = Median(logging) / append;
  state.counters["plain_us"] = append * 1e6;
}
BENCHMARK(DebugWrite)->UseManualTime()->Unit(benchmark::kMicrosecond);

void DebugWriteSwitchedOff(benchmark::State& state) {
  LoggingProgram program;
  program.state.Debug = false;
  for (auto _ : state) program.log.DebugWrite("UserStateChanged", "nothing is kept of this");
}
BENCHMARK(DebugWriteSwitchedOff);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();
