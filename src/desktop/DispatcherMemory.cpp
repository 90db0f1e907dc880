#include "desktop/DispatcherMemory.h"

#include <fcntl.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Lines.h"
#include "desktop/AtomicFile.h"
#include "desktop/FileCalls.h"
#include "desktop/SsipConnection.h"

namespace brenwick {
namespace {

using Listings = std::vector<DispatcherListing>;

Listings Read(const std::string& path) {
  OpenFile file(SystemCalls(), path, O_RDONLY);
  std::string content;
  if (!file.IsOpen() || file.ReadAll(content) != 0) return {};
  Listings listings;
  for (const std::string_view line : Lines(content)) {
    const std::size_t tab = std::min(line.find('\t'), line.size());
    listings.push_back(
        ReadListing(std::string(line.substr(0, tab)), line.substr(std::min(tab + 1, line.size()))));
  }
  return listings;
}

bool Write(const std::string& path, const Listings& listings) {
  std::string content;
  for (const DispatcherListing& listing : listings) {
    content += listing.module + '\t' + listing.name + '\t' + listing.language + '\t' +
               listing.variant + '\n';
  }
  if (MakeFolders(SystemCalls(), FolderOf(path)) != 0) return false;
  return AtomicFile(path).Replace(content) == 0;
}

// Nothing where the engine does not answer, or the server answers for it.
Listings Listed(SsipConnection& server, const std::string& module, const StopSign& stop) {
  Listings listings;
  try {
    server.Ask("SET SELF OUTPUT_MODULE " + module, &stop);
    for (const std::string& line : server.Ask("LIST SYNTHESIS_VOICES", &stop)) {
      listings.push_back(ReadListing(module, line));
      if (listings.back().name == kNoEngine) return {};
    }
  } catch (const SsipRefusal&) {
    return {};
  }
  return listings;
}

}  // namespace

DispatcherMemory::DispatcherMemory(DispatcherAddress address, std::string path, Done done)
    : address_(std::move(address)), path_(std::move(path)), done_(std::move(done)) {}

DispatcherMemory::~DispatcherMemory() {
  stop_.Raise();
  if (thread_.joinable()) thread_.join();
}

std::vector<DispatcherListing> DispatcherMemory::Voices() const { return Read(path_); }

void DispatcherMemory::Refresh() {
  const std::lock_guard lock(mutex_);
  if (asked_) return;
  asked_ = true;
  if (thread_.joinable()) thread_.join();
  thread_ = std::thread([this] { Work(); });
}

void DispatcherMemory::Work() {
  bool reached = false;
  bool news = false;
  try {
    news = Ask();
    reached = true;
  } catch (const SsipTrouble&) {
    // The voices are asked for again when somebody has reached the server.
  } catch (const SsipStopped&) {
    return;
  }
  done_(reached, news);
  const std::lock_guard lock(mutex_);
  asked_ = reached;
}

bool DispatcherMemory::Ask() {
  SsipConnection server(address_);
  const Listings remembered = Voices();
  Listings listings;
  server.Ask("SET SELF CLIENT_NAME user:brenwick:voices", &stop_);
  for (const std::string& module : server.Ask("LIST OUTPUT_MODULES", &stop_)) {
    if (module == kNoEngine) continue;
    const Listings listed = Listed(server, module, stop_);
    // An engine that is out of order today is there tomorrow, and so is the user's choice.
    const Listings& known = listed.empty() ? remembered : listed;
    std::copy_if(known.begin(), known.end(), std::back_inserter(listings),
                 [&](const DispatcherListing& listing) { return listing.module == module; });
  }
  listings = CondensedVoices(std::move(listings));
  return !listings.empty() && listings != remembered && Write(path_, listings);
}

}  // namespace brenwick
