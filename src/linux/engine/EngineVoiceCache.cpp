#include "linux/engine/EngineVoiceCache.h"

#include <string_view>
#include <utility>

#include "files/AtomicFile.h"
#include "files/FileCalls.h"
#include "linux/engine/EngineContents.h"

namespace brenwick {
namespace {

std::optional<RememberedEngine> Read(const std::string& path) {
  OpenFile file(SystemCalls(), path, OpenMode::Read);
  std::string content;
  if (!file.IsOpen() || file.ReadAll(content) != 0) return {};
  // The first line holds the sample rate and the locale.
  const std::size_t tab = content.find('\t');
  const std::size_t end = content.find('\n');
  if (end == std::string::npos || tab > end) return {};
  RememberedEngine engine;
  engine.sample_rate = SampleRateIn(std::string_view(content).substr(0, tab));
  engine.locale = content.substr(tab + 1, end - tab - 1);
  engine.voices = VoicesIn(content.substr(end + 1));
  if (engine.sample_rate <= 0 || engine.voices.empty()) return {};
  return engine;
}

}  // namespace

EngineVoiceCache::EngineVoiceCache(std::string path)
    : path_(std::move(path)), remembered_(path_.empty() ? std::nullopt : Read(path_)) {}

void EngineVoiceCache::Remember(RememberedEngine engine) {
  if (path_.empty() || engine.voices.empty() || engine == remembered_) return;
  remembered_ = std::move(engine);
  if (MakeFolders(SystemCalls(), FolderOf(path_)) != 0) return;
  AtomicFile(path_).Replace(std::to_string(remembered_->sample_rate) + '\t' + remembered_->locale +
                            '\n' + VoicesContent(remembered_->voices));
}

}  // namespace brenwick
