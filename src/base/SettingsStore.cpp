#include "base/SettingsStore.h"

#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

struct SettingsStore::File {
    CSimpleIniA ini{false, false, false};
};

SettingsStore::SettingsStore(std::string dir) : dir_(std::move(dir)) {
    if (!dir_.empty() && dir_.back() != '/') dir_ += '/';
}

SettingsStore::~SettingsStore() = default;

std::string SettingsStore::DefaultDirectory() {
    if (const char* x = std::getenv("XDG_CONFIG_HOME"); x && *x == '/') return x;
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : "/tmp") + "/.config";
}

std::string SettingsStore::FileFor(std::string_view app) const {
    return dir_ + settings_escape::Encode(app, true) + ".ini";
}

SettingsStore::File& SettingsStore::Open(std::string_view app) {
    if (auto it = files_.find(app); it != files_.end()) return *it->second;
    auto f = std::make_unique<File>();
    // A missing or unreadable file is an empty store; nothing is reported.
    f->ini.LoadFile(FileFor(app).c_str());
    return *files_.emplace(std::string(app), std::move(f)).first->second;
}

namespace {
void MakeDirs(const std::string& dir) {
    for (size_t p = 1; p <= dir.size(); ++p) {
        if (p == dir.size() || dir[p] == '/') {
            std::string part = dir.substr(0, p);
            if (!part.empty()) ::mkdir(part.c_str(), 0700);
        }
    }
}

// Writes the whole text to a temporary file beside the target and renames it over the
// target, so that a failed write never leaves a half-written store.
bool WriteAtomically(const std::string& path, const std::string& text) {
    std::string tmp = path + ".tmp" + std::to_string(::getpid());
    int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    const char* p = text.data();
    size_t left = text.size();
    while (left > 0) {
        ssize_t n = ::write(fd, p, left);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            ::close(fd);
            ::unlink(tmp.c_str());
            return false;
        }
        p += n;
        left -= size_t(n);
    }
    if (::close(fd) != 0 || std::rename(tmp.c_str(), path.c_str()) != 0) {
        ::unlink(tmp.c_str());
        return false;
    }
    return true;
}
} // namespace

void SettingsStore::Flush(std::string_view app, File& f) {
    if (batchDepth_ > 0) {
        unsaved_.emplace(app);
        return;
    }
    std::string text;
    f.ini.Save(text);
    MakeDirs(dir_);
    if (!WriteAtomically(FileFor(app), text))
        throw SettingsStoreError("Cannot write the settings file " + FileFor(app) + ": " +
                                 std::strerror(errno));
}

SettingsStore::Batch::Batch(SettingsStore& store) : store_(store) {
    ++store_.batchDepth_;
}

void SettingsStore::Batch::Commit() {
    if (!open_) return;
    open_ = false;
    store_.EndBatch();
}

SettingsStore::Batch::~Batch() {
    try {
        Commit();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "kestrum: %s\n", e.what());
    }
}

void SettingsStore::EndBatch() {
    if (batchDepth_ == 0 || --batchDepth_ > 0) return;
    std::set<std::string, std::less<>> files;
    files.swap(unsaved_);
    std::optional<SettingsStoreError> failure;
    for (const std::string& app : files) {
        try {
            Flush(app, Open(app));
        } catch (const SettingsStoreError& e) {
            if (!failure) failure = e;
        }
    }
    if (failure) throw *failure;
}

std::string SettingsStore::GetSetting(std::string_view app, std::string_view section,
                                      std::string_view key, std::string_view def) {
    File& f = Open(app);
    std::string s = settings_escape::Encode(section, true), k = settings_escape::Encode(key, true);
    const char* v = f.ini.GetValue(s.c_str(), k.c_str(), nullptr);
    return v ? settings_escape::Decode(v) : std::string(def);
}

void SettingsStore::SaveSetting(std::string_view app, std::string_view section,
                                std::string_view key, std::string_view value) {
    if (section.empty() || key.empty())
        throw SettingsStoreError("Invalid procedure call or argument: empty section or key");
    File& f = Open(app);
    std::string s = settings_escape::Encode(section, true), k = settings_escape::Encode(key, true);
    std::string v = settings_escape::Encode(value, false);
    const char* old = f.ini.GetValue(s.c_str(), k.c_str(), nullptr);
    std::optional<std::string> previous = old ? std::optional<std::string>(old) : std::nullopt;
    bool sectionExisted = f.ini.GetSection(s.c_str()) != nullptr;
    f.ini.SetValue(s.c_str(), k.c_str(), v.c_str());
    try {
        Flush(app, f);
    } catch (...) {
        // Keep memory and disk alike: undo the change that could not be written.
        if (previous)
            f.ini.SetValue(s.c_str(), k.c_str(), previous->c_str());
        else
            f.ini.Delete(s.c_str(), k.c_str(), !sectionExisted);
        throw;
    }
}

void SettingsStore::DeleteSetting(std::string_view app, std::string_view section,
                                  std::optional<std::string_view> key) {
    File& f = Open(app);
    std::string s = settings_escape::Encode(section, true);
    if (!f.ini.GetSection(s.c_str()))
        throw SettingsStoreError("Invalid procedure call or argument: no section '" +
                                 std::string(section) + "'");
    if (key) {
        std::string k = settings_escape::Encode(*key, true);
        if (!f.ini.GetValue(s.c_str(), k.c_str(), nullptr))
            throw SettingsStoreError("Invalid procedure call or argument: no key '" +
                                     std::string(*key) + "'");
        f.ini.Delete(s.c_str(), k.c_str(), false);
    } else {
        f.ini.Delete(s.c_str(), nullptr);
    }
    Flush(app, f);
}

std::vector<std::pair<std::string, std::string>>
SettingsStore::GetAllSettings(std::string_view app, std::string_view section) {
    File& f = Open(app);
    std::vector<std::pair<std::string, std::string>> out;
    std::string s = settings_escape::Encode(section, true);
    CSimpleIniA::TNamesDepend keys;
    if (!f.ini.GetAllKeys(s.c_str(), keys)) return out;
    keys.sort(CSimpleIniA::Entry::LoadOrder());
    for (const auto& k : keys) {
        const char* v = f.ini.GetValue(s.c_str(), k.pItem, "");
        out.emplace_back(settings_escape::Decode(k.pItem), settings_escape::Decode(v));
    }
    return out;
}

bool SettingsStore::SectionExists(std::string_view app, std::string_view section) {
    return Open(app).ini.GetSection(settings_escape::Encode(section, true).c_str()) != nullptr;
}

namespace settings_escape {
std::string Encode(std::string_view raw, bool isKey) {
    static const char hex[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(raw.size());
    for (size_t i = 0; i < raw.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(raw[i]);
        bool atEnd = i == 0 || i + 1 == raw.size();
        bool special = c < 0x20 || c == 0x7F || c == 0xFF || c == '\\' ||
                       (atEnd && (c == ' ' || c == '"')) ||
                       (isKey && (c == '=' || c == '[' || c == ']' || c == ';' || c == '#'));
        if (!special) {
            out += char(c);
        } else if (c == '\\') {
            out += "\\\\";
        } else {
            out += "\\x";
            out += hex[c >> 4];
            out += hex[c & 15];
        }
    }
    return out;
}

std::string Decode(std::string_view s) {
    auto hexval = [](char c) -> int {
        if (c >= '0' && c <= '9') return c - '0';
        if (c >= 'A' && c <= 'F') return c - 'A' + 10;
        if (c >= 'a' && c <= 'f') return c - 'a' + 10;
        return -1;
    };
    std::string out;
    out.reserve(s.size());
    for (size_t i = 0; i < s.size(); ++i) {
        if (s[i] == '\\' && i + 1 < s.size() && s[i + 1] == '\\') {
            out += '\\';
            ++i;
        } else if (s[i] == '\\' && i + 3 < s.size() + 0 && s[i + 1] == 'x' &&
                   hexval(s[i + 2]) >= 0 && hexval(s[i + 3]) >= 0) {
            out += char(hexval(s[i + 2]) * 16 + hexval(s[i + 3]));
            i += 3;
        } else {
            out += s[i];
        }
    }
    return out;
}
} // namespace settings_escape

namespace settings_convert {
std::string FromBool(bool v) {
    return v ? "True" : "False";
}

static std::string_view Trim(std::string_view t) {
    while (!t.empty() && (t.front() == ' ' || t.front() == '\t')) t.remove_prefix(1);
    while (!t.empty() && (t.back() == ' ' || t.back() == '\t')) t.remove_suffix(1);
    return t;
}

static bool EqualsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::tolower((unsigned char)a[i]) != std::tolower((unsigned char)b[i])) return false;
    return true;
}

std::optional<bool> ToBool(std::string_view text) {
    auto t = Trim(text);
    if (EqualsNoCase(t, "True")) return true;
    if (EqualsNoCase(t, "False")) return false;
    if (auto n = ToDouble(t)) return *n != 0.0;
    return std::nullopt;
}

std::optional<long long> ToInteger(std::string_view text) {
    auto t = Trim(text);
    if (EqualsNoCase(t, "True")) return -1;
    if (EqualsNoCase(t, "False")) return 0;
    long long n = 0;
    if (auto r = std::from_chars(t.data(), t.data() + t.size(), n);
        r.ec == std::errc() && r.ptr == t.data() + t.size())
        return n;
    auto d = ToDouble(t);
    if (!d) return std::nullopt;
    // Numbers with a fraction round to the nearest integer, halves to even; a number beyond
    // what the type holds (or not a number at all) is not one.
    const double r = std::nearbyint(*d);
    if (!(r >= -9.2e18 && r <= 9.2e18)) return std::nullopt;
    return static_cast<long long>(r);
}

// Locale-independent: the store is the same file whatever the user's language.
std::optional<double> ToDouble(std::string_view text) {
    auto t = Trim(text);
    if (!t.empty() && t.front() == '+') t.remove_prefix(1);
    if (t.empty()) return std::nullopt;
    double d = 0;
    auto r = std::from_chars(t.data(), t.data() + t.size(), d);
    if (r.ec != std::errc() || r.ptr != t.data() + t.size()) return std::nullopt;
    return d;
}

std::optional<float> ToSingle(std::string_view text) {
    auto d = ToDouble(text);
    // Beyond float's range the conversion is undefined: such a value does not convert.
    if (!d || std::fabs(*d) > double(std::numeric_limits<float>::max())) return std::nullopt;
    return static_cast<float>(*d);
}

std::optional<double> ToDoubleIn(std::string_view text, double lo, double hi) {
    auto d = ToDouble(text);
    if (!d || std::isnan(*d)) return std::nullopt;
    return std::clamp(*d, lo, hi);
}

std::string FromSingle(float v) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}
} // namespace settings_convert
