// Where the effects of a rehearsal are written.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

namespace brenwick {

class frmMain;

// Members keep the order in which they are put in, so that the same effect is always written alike.
using Effect = nlohmann::ordered_json;

class Transcript {
 public:
  Transcript() = default;
  Transcript(const Transcript&) = delete;
  Transcript& operator=(const Transcript&) = delete;
  virtual ~Transcript() = default;

  // The window of the program that the coming steps are about; it stays until the next is named.
  virtual void Watch(const frmMain&) {}
  // A script object is about to be carried out; steps are counted from 1.
  virtual void BeginStep(int number, const nlohmann::json& step) = 0;
  // Something that the program did to the world.
  virtual void Write(const Effect& effect) = 0;
};

// One JSON object a line.
class JsonTranscript : public Transcript {
 public:
  // flush: each line reaches the stream's reader at once.
  JsonTranscript(std::ostream& out, bool flush) : out_(out), flush_(flush) {}

  void BeginStep(int number, const nlohmann::json& step) override;
  void Write(const Effect& effect) override;

 private:
  std::ostream& out_;
  bool flush_;
};

}  // namespace brenwick
