// A folder of its own for a test, removed with everything in it when the test ends.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace tavimor {

class TempFolder {
 public:
  explicit TempFolder(const std::string& name)
      : path_((std::filesystem::temp_directory_path() /
               ("tavimor-" + name + "-" + std::to_string(::getpid())))
                  .string()) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& Path() const { return path_; }
  // Writes a file under the folder (its folders made as needed); its full path.
  std::string Write(const std::string& name, const std::string& bytes) const {
    const std::filesystem::path file = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.string();
  }

 private:
  std::string path_;
};

}  // namespace tavimor
