#include "linux/speechd/SpeechdVoiceCache.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <map>
#include <utility>

#include "base/Lines.h"
#include "files/AtomicFile.h"
#include "files/FileCalls.h"
#include "linux/speechd/SsipConnection.h"

namespace brenwick {
namespace {

using Listings = std::vector<SpeechdListing>;
using Rows = std::vector<std::string>;

Listings Read(const std::string& path) {
  OpenFile file(SystemCalls(), path, OpenMode::Read);
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
  for (const SpeechdListing& listing : listings) {
    content += listing.module + '\t' + listing.name + '\t' + listing.language + '\t' +
               listing.variant + '\n';
  }
  if (MakeFolders(SystemCalls(), FolderOf(path)) != 0) return false;
  return AtomicFile(path).Replace(content) == 0;
}

// The rows of the engine's list; none where it does not answer.
Rows Listed(SsipConnection& server, const std::string& module, const StopToken& stop) {
  try {
    server.Ask("SET SELF OUTPUT_MODULE " + module, &stop);
    return server.Ask("LIST SYNTHESIS_VOICES", &stop);
  } catch (const SsipRefusal&) {
    return {};
  }
}

bool IsOfNoEngine(const Rows& rows) {
  return rows.empty() || ReadListing("", rows.front()).name == kNoEngine;
}

bool IsOfTwo(const std::map<std::string, Rows>& modules, const Rows& rows) {
  return std::count_if(modules.begin(), modules.end(),
                       [&](const auto& module) { return module.second == rows; }) > 1;
}

Listings VoicesOf(const std::string& module, const Rows& rows) {
  Listings listings;
  listings.reserve(rows.size());
  for (const std::string& row : rows) listings.push_back(ReadListing(module, row));
  return listings;
}

Listings VoicesOf(const std::string& module, const Listings& remembered) {
  Listings listings;
  std::copy_if(remembered.begin(), remembered.end(), std::back_inserter(listings),
               [&](const SpeechdListing& listing) { return listing.module == module; });
  return listings;
}

}  // namespace

SpeechdVoiceCache::SpeechdVoiceCache(SpeechdAddress address, std::string path, Done done)
    : address_(std::move(address)), path_(std::move(path)), done_(std::move(done)) {}

SpeechdVoiceCache::~SpeechdVoiceCache() {
  stop_.RequestStop();
  if (thread_.joinable()) thread_.join();
}

std::vector<SpeechdListing> SpeechdVoiceCache::Voices() const { return Read(path_); }

void SpeechdVoiceCache::Refresh() {
  const std::lock_guard lock(mutex_);
  if (asked_) return;
  if (thread_.joinable()) thread_.join();
  // The thread cannot clear asked_ before this function gives the mutex back.
  thread_ = std::thread([this] { Work(); });
  asked_ = true;
}

void SpeechdVoiceCache::Work() {
  std::optional<bool> news;
  try {
    news = Ask();
  } catch (const std::exception&) {
    // The voices are asked for again when somebody has reached the server.
  } catch (const SsipStopped&) {
    return;
  }
  try {
    done_(news.has_value(), news.value_or(false));
  } catch (const std::exception&) {
    // Nothing is shown of the news, and the program goes on.
  }
  const std::lock_guard lock(mutex_);
  asked_ = news.has_value();
}

// Whether other voices are remembered now; nothing where none of the server's engines works.
std::optional<bool> SpeechdVoiceCache::Ask() {
  SsipConnection server(address_);
  const Listings remembered = Voices();
  server.Ask("SET SELF CLIENT_NAME user:brenwick:voices", &stop_);
  std::map<std::string, Rows> modules;
  for (const std::string& module : server.Ask("LIST OUTPUT_MODULES", &stop_)) {
    if (module != kNoEngine) modules[module] = Listed(server, module, stop_);
  }
  if (std::all_of(modules.begin(), modules.end(),
                  [](const auto& module) { return IsOfNoEngine(module.second); })) {
    return std::nullopt;
  }
  Listings listings;
  for (const auto& [module, rows] : modules) {
    Listings voices = VoicesOf(module, remembered);
    // For an engine that is out of order the server lists the voices of another one. It may work
    // again tomorrow, and so does the user's choice.
    const bool certain = voices.empty() || !IsOfTwo(modules, rows);
    if (certain && !IsOfNoEngine(rows)) voices = VoicesOf(module, rows);
    std::move(voices.begin(), voices.end(), std::back_inserter(listings));
  }
  listings = CondensedVoices(std::move(listings));
  return !listings.empty() && listings != remembered && Write(path_, listings);
}

}  // namespace brenwick
