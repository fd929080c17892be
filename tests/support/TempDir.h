#pragma once
// A fresh folder under /tmp, removed with everything in it when the object goes.
#include <string>
#include <string_view>

class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    // The folder's path, ending in '/'.
    const std::string& path() const { return path_; }
    std::string file(std::string_view name) const { return path_ + std::string(name); }
    // Writes bytes to name inside the folder and returns the full path.
    std::string write(std::string_view name, std::string_view bytes) const;

  private:
    std::string path_;
};

std::string ReadFileBytes(const std::string& path);
bool FileExists(const std::string& path);
