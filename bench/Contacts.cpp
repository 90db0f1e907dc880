// The contact list on the disk, beside a plain write of the same bytes, and looking a contact up.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "Parts.h"
#include "People.h"
#include "contacts/ContactFile.h"

namespace brenwick {
namespace {

struct SavedContacts : Parts {
  explicit SavedContacts(std::int64_t count) : Parts("contacts") {
    contacts.Replace(Records(count));
    file.Save();
  }

  std::string Path() { return data.Inside("Brenwick.Lst"); }

  ContactList contacts{log, settings, texts};
  ContactFile file{contacts, data, folders, clock};
};

// False: the disk refused.
bool WritePlainly(const std::string& path, const std::string& bytes) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (descriptor < 0) return false;
  const bool written =
      ::write(descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  const bool flushed = ::fsync(descriptor) == 0;
  return ::close(descriptor) == 0 && written && flushed;
}

// "ratio" compares the medians of both, taken in turn, so that a slow moment of the disk meets both
// alike. At most 1.5 is wanted.
void Save(benchmark::State& state) {
  SavedContacts saved(state.range(0));
  const std::string bytes = saved.folders.Read(saved.Path());
  const std::string plain = saved.data.Inside("plain");
  std::vector<double> saving;
  std::vector<double> writing;
  bool written = true;
  for (auto _ : state) {
    writing.push_back(Seconds([&] { written = WritePlainly(plain, bytes) && written; }));
    saving.push_back(Seconds([&] { saved.file.Save(); }));
    state.SetIterationTime(saving.back());
  }
  if (!written) state.SkipWithError("the plain file could not be written");
  const double write = Median(writing);
  state.counters["ratio"] = Median(saving) / write;
  state.counters["plain_us"] = write * 1e6;
}
BENCHMARK(Save)->Arg(100)->Arg(1'000)->Arg(32'767)->UseManualTime()->Unit(benchmark::kMicrosecond);

void Load(benchmark::State& state) {
  SavedContacts saved(state.range(0));
  for (auto _ : state) saved.file.Load();
  const auto loaded = static_cast<std::int64_t>(saved.contacts.Records().size());
  if (loaded != state.range(0)) state.SkipWithError("not all contacts were loaded");
}
BENCHMARK(Load)->Arg(100)->Arg(1'000)->Arg(32'767)->Unit(benchmark::kMicrosecond);

void FindLast(benchmark::State& state) {
  SavedContacts saved(state.range(0));
  const std::string email = EmailOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(saved.contacts.FindRecord(email));
  if (saved.contacts.FindRecord(email) == nullptr) state.SkipWithError("it was not found");
}
BENCHMARK(FindLast)->Arg(100)->Arg(1'000)->Arg(32'767)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();
