#pragma once
// The per-user store of small values: application title, section and key lead to a text
// value. One file per application title holds it; sections and keys are found without
// regard to case, and keys keep the order in which they were first written.
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class SettingsStoreError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class SettingsStore {
  public:
    // dir: the folder that holds one "<application>.ini" file per application title.
    explicit SettingsStore(std::string dir);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    // The folder chosen by the desktop's rules: $XDG_CONFIG_HOME, else ~/.config.
    static std::string DefaultDirectory();

    std::string GetSetting(std::string_view app, std::string_view section, std::string_view key,
                           std::string_view def = {});
    // Throws SettingsStoreError when the file cannot be written; the store is then unchanged.
    void SaveSetting(std::string_view app, std::string_view section, std::string_view key,
                     std::string_view value);
    // Deletes one key, or with no key the whole section. Deleting what is not there throws.
    void DeleteSetting(std::string_view app, std::string_view section,
                       std::optional<std::string_view> key = std::nullopt);
    // The section's pairs in store order; empty when the section is missing.
    std::vector<std::pair<std::string, std::string>> GetAllSettings(std::string_view app,
                                                                    std::string_view section);
    bool SectionExists(std::string_view app, std::string_view section);

    std::string FileFor(std::string_view app) const;

    // The writes of one operation in one save: while a batch is open, changes stay in memory
    // and each changed file is written once when the outermost batch ends. A write that then
    // fails leaves memory ahead of the disk, as the batch's writes cannot be told apart.
    class Batch {
      public:
        explicit Batch(SettingsStore& store);
        // Ends the batch; throws SettingsStoreError when a changed file cannot be written.
        void Commit();
        // Ends the batch if Commit did not; a failed write is reported on stderr, as the
        // program does for single writes.
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

      private:
        SettingsStore& store_;
        bool open_ = true;
    };

  private:
    struct File;
    File& Open(std::string_view app);
    void Flush(std::string_view app, File& f);

    std::string dir_;
    std::map<std::string, std::unique_ptr<File>, std::less<>> files_;
    void EndBatch();
    int batchDepth_ = 0;
    std::set<std::string, std::less<>> unsaved_; // files changed inside the open batch
};

// Escaping of values and keys in the file, so that any byte string (line ends, the code-255
// separator, '=' in a key, blanks at the ends) survives a round trip.
namespace settings_escape {
std::string Encode(std::string_view raw, bool isKey);
std::string Decode(std::string_view stored);
} // namespace settings_escape

// Conversions of the store's text values.
namespace settings_convert {
std::string FromBool(bool v); // "True" / "False"
// "True"/"False" in any case, or a number (true when not 0). nullopt when it does not convert.
std::optional<bool> ToBool(std::string_view text);
std::optional<long long> ToInteger(std::string_view text);
std::optional<float> ToSingle(std::string_view text);
std::optional<double> ToDouble(std::string_view text);
// A stored number held to [lo, hi], so that a hand-edited value cannot make a window, a font
// or a margin absurd. nullopt when the text does not convert (NaN included).
std::optional<double> ToDoubleIn(std::string_view text, double lo, double hi);
std::string FromSingle(float v);
} // namespace settings_convert
