// A contact file of any bytes: what was read whole is written and read again alike, and what was
// not is kept.
#include <algorithm>

#include "contacts/ContactFile.h"
#include "fuzz/FuzzWorld.h"

namespace brenwick {
namespace {

constexpr const char* kFile = "/documents/Brenwick/Brenwick.Lst";
constexpr const char* kEarlier = "/documents/Brenwick/Brenwick.Lst.damaged-2003-03-15";
constexpr const char* kAside = "/documents/Brenwick/Brenwick.Lst.damaged-2003-03-15-2";

using Record = std::vector<std::string>;

Record FieldsOf(const ContactRecord& record) {
  return {record.Email,  record.Name,   record.FriendlyName,   record.Gender,
          record.Ignore, record.Status, record.HasFriendlyName};
}

// A program with the one file, and an earlier damaged one beside it.
class Program {
 public:
  explicit Program(std::string_view file) {
    files_[kFile] = file;
    files_[kEarlier] = "earlier";
  }

  // False: it ends within a contact.
  bool Load() {
    try {
      file_.Load();
    } catch (const Failure& failure) {
      Expect(failure.Number() == kPastEnd, "a file that can be read fails at its end only");
      return false;
    }
    return true;
  }
  void Save() { file_.Save(); }

  std::vector<Record> Records() const {
    std::vector<Record> records;
    for (const ContactRecord& record : list_.Records()) records.push_back(FieldsOf(record));
    return records;
  }
  std::string Kept(const std::string& path) { return files_.contains(path) ? files_[path] : "?"; }
  std::size_t CountFiles() const { return files_.size(); }

 private:
  FakeWorld world_;
  SettingsValues settings_;
  std::map<std::string, std::string>& files_ = world_.folders.files;
  TextTable texts_{world_.log};
  ContactList list_{world_.log, settings_, texts_};
  ContactFile file_{list_, world_.data, world_.folders, world_.clock};
};

// What a file keeps of the records: no free slots, no friendly name that does not count, and a
// space where a field holds a line end of its own.
std::vector<Record> AsWritten(const std::vector<Record>& records) {
  std::vector<Record> written;
  for (Record record : records) {
    if (record[0].empty()) continue;
    if (record[6] != "True") record[2].clear();
    for (std::string& field : record) std::replace(field.begin(), field.end(), '\r', ' ');
    written.push_back(record);
  }
  return written;
}

void CheckFile(std::string_view bytes) {
  Program program(bytes);
  const bool whole = program.Load();
  const std::vector<Record> records = program.Records();
  Expect(program.Kept(kFile) == bytes, "reading leaves the file alone");
  program.Save();
  Expect(program.Kept(kEarlier) == "earlier", "a file kept aside earlier stays");
  Expect(program.CountFiles() == (whole ? 2U : 3U), "a whole file has nothing to keep aside");
  if (!whole) Expect(program.Kept(kAside) == bytes, "a file that ends too early is kept aside");

  Program again(program.Kept(kFile));
  Expect(again.Load(), "what was saved is whole");
  Expect(again.Records() == AsWritten(records), "what was saved is read again");
  again.Save();
  Expect(again.Kept(kFile) == program.Kept(kFile), "saved again, the file stays as it is");
}

const FuzzTarget kTarget("contacts", CheckFile);

}  // namespace
}  // namespace brenwick
