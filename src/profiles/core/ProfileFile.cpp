#include "profiles/core/ProfileFile.h"

#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The field names used in messages, as the record spells them.
std::string FieldName(const char* base, int index, const char* member = nullptr) {
    std::string n = std::string(base) + "(" + std::to_string(index) + ")";
    if (member) n += std::string(".") + member;
    return n;
}

// The one list of the record's fields in file order, shared by the reader and the writer so
// that the two cannot drift apart. Io supplies String, Long, Bool, Short and Single; Record
// is EditorSettings, const for the writer.
template <typename Io, typename Record> void VisitFields(Io& io, Record& s) {
    for (int i = 0; i < 3; ++i) io.String(s.Keywords[i], [i] { return FieldName("Keywords", i); });
    for (auto& c : s.KeywordColor) io.Long(c);
    io.Long(s.KeywordCount);
    io.Bool(s.WordWrap);
    for (int i = 0; i < 8; ++i) {
        auto& d = s.Delimiters[i];
        io.String(d.DelimiterStart, [i] { return FieldName("Delimiters", i, "DelimiterStart"); });
        io.String(d.DelimiterEnd, [i] { return FieldName("Delimiters", i, "DelimiterEnd"); });
        io.Long(d.DelimiterColor);
    }
    io.Reserved(s.reserved);
    io.Bool(s.AutoCode);
    io.Bool(s.Backup);
    io.String(s.EditorFont, [] { return std::string("EditorFont"); });
    io.Single(s.EditorSize);
    io.String(s.CompilerString, [] { return std::string("CompilerString"); });
    io.Bool(s.CodeOrder);
    io.Bool(s.CaseSensitive);
    io.Bool(s.AutoComplete);
    io.Short(s.TabWidth);
    io.Bool(s.EditorBold);
    io.Bool(s.EditorItalic);
    io.Long(s.BGColor);
    io.Long(s.TextColor);
    io.Bool(s.AutoBracers);
    io.Bool(s.RealTabs);
}

class Writer {
  public:
    std::string out;
    std::string error;

    template <typename Name> void String(const std::string& v, Name name) {
        if (!error.empty()) return;
        if (v.size() > kMaxProfileString) {
            error = "The profile cannot be saved: " + name() + " is " + std::to_string(v.size()) +
                    " bytes long, and a profile holds at most " +
                    std::to_string(kMaxProfileString) + " bytes in one string.";
            return;
        }
        Put(uint16_t(v.size()), 2);
        out += v;
    }
    void Reserved(const std::string&) { Put(0, 2); }
    void Long(int32_t v) { Put(uint32_t(v), 4); }
    void Short(int16_t v) { Put(uint16_t(v), 2); }
    void Bool(bool v) { Put(v ? 0xFFFFu : 0u, 2); }
    void Single(float v) { Put(std::bit_cast<uint32_t>(v), 4); }

  private:
    void Put(uint32_t v, int bytes) {
        for (int i = 0; i < bytes; ++i) out += char((v >> (8 * i)) & 0xFF);
    }
};

class Reader {
  public:
    explicit Reader(std::string_view data) : data_(data) {}
    size_t pos() const { return pos_; }
    bool stopped() const { return stopped_; }

    template <typename Name> void String(std::string& v, Name) { ReadString(v); }
    void Reserved(std::string& v) { ReadString(v); }
    void Long(int32_t& v) {
        if (uint32_t u; Get(u, 4)) v = int32_t(u);
    }
    void Short(int16_t& v) {
        if (uint32_t u; Get(u, 2)) v = int16_t(uint16_t(u));
    }
    void Bool(bool& v) {
        if (uint32_t u; Get(u, 2)) v = u != 0;
    }
    void Single(float& v) {
        if (uint32_t u; Get(u, 4)) v = std::bit_cast<float>(u);
    }

  private:
    // Takes an unsigned little-endian number; at the end of the data it stops the reader
    // and leaves v alone.
    bool Get(uint32_t& v, size_t bytes) {
        if (stopped_ || data_.size() - pos_ < bytes) {
            stopped_ = true;
            return false;
        }
        v = 0;
        for (size_t i = 0; i < bytes; ++i) v |= uint32_t(uint8_t(data_[pos_ + i])) << (8 * i);
        pos_ += bytes;
        return true;
    }
    // A length that runs past the end stops the reader before the length is taken, so that
    // the string keeps its old value.
    void ReadString(std::string& v) {
        size_t start = pos_;
        uint32_t len;
        if (!Get(len, 2)) return;
        if (data_.size() - pos_ < len) {
            pos_ = start;
            stopped_ = true;
            return;
        }
        v.assign(data_.substr(pos_, len));
        pos_ += len;
    }

    std::string_view data_;
    size_t pos_ = 0;
    bool stopped_ = false;
};

// The longest possible record: the reader of a file never needs more than this.
constexpr size_t kStringsInRecord = 3 + 8 * 2 + 3;
constexpr size_t kFixedBytes = 6 * 4 + 4 + 2 + 8 * 4 + 2 * 2 + 4 + 6 * 2 + 2 * 4 + 2 * 2;
constexpr size_t kMaxRecordBytes = kStringsInRecord * (2 + kMaxProfileString) + kFixedBytes;

std::string SystemError(const std::string& what, const std::string& path) {
    return what + " " + path + ": " + std::strerror(errno);
}

// Closes the descriptor on every way out.
struct Fd {
    int fd;
    ~Fd() {
        if (fd >= 0) ::close(fd);
    }
};

} // namespace

ProfileReadResult ReadProfile(std::string_view bytes, EditorSettings& s) {
    Reader r(bytes);
    VisitFields(r, s);
    ProfileReadResult result;
    result.status = r.stopped() ? ProfileReadStatus::Short : ProfileReadStatus::Complete;
    result.length = r.pos();
    return result;
}

ProfileReadResult ReadProfileFile(const std::string& path, EditorSettings& s) {
    ProfileReadResult fail;
    Fd f{::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
    if (f.fd < 0) {
        fail.error = SystemError("Cannot open", path);
        return fail;
    }
    struct stat st;
    if (::fstat(f.fd, &st) != 0) {
        fail.error = SystemError("Cannot examine", path);
        return fail;
    }
    if (!S_ISREG(st.st_mode)) {
        fail.error = "Cannot open " + path + ": it is not a file";
        return fail;
    }
    std::string data;
    char buf[65536];
    while (data.size() < kMaxRecordBytes) {
        ssize_t n = ::read(f.fd, buf, sizeof buf);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            fail.error = SystemError("Cannot read", path);
            return fail;
        }
        if (n == 0) break;
        data.append(buf, size_t(n));
    }
    return ReadProfile(data, s);
}

EncodedProfile EncodeProfile(const EditorSettings& s) {
    Writer w;
    VisitFields(w, s);
    if (!w.error.empty()) return {{}, w.error};
    return {std::move(w.out), {}};
}

std::string WriteProfileFile(const std::string& path, const EditorSettings& s) {
    EncodedProfile p = EncodeProfile(s);
    if (!p.ok()) return p.error;
    // No O_TRUNC: the record goes over the start of whatever the file held.
    Fd f{::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644)};
    if (f.fd < 0) return SystemError("Cannot open", path);
    size_t done = 0;
    while (done < p.bytes.size()) {
        ssize_t n = ::write(f.fd, p.bytes.data() + done, p.bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return SystemError("Cannot write", path);
        done += size_t(n);
    }
    int fd = f.fd;
    f.fd = -1;
    if (::close(fd) != 0) return SystemError("Cannot write", path);
    return {};
}

EditorSettings NewProfileRecord(const std::array<std::string, 3>& keywords,
                                const std::array<DelimiterPair, 8>& delimiters, bool codeOrder,
                                bool caseSensitive) {
    EditorSettings s;
    s.Keywords = keywords;
    s.Delimiters = delimiters;
    s.CodeOrder = codeOrder;
    s.CaseSensitive = caseSensitive;
    return s;
}
