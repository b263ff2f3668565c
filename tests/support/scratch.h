// A folder of a test's own, and the whole-file reads and writes tests make
// in it. The folder goes, with all that is in it, when the test ends: ctest
// runs programs side by side and runs them again and again, so nothing may
// be left behind or shared.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

// The name may hold spaces and quotes: some tests want a path a shell would trip on.
struct ScratchFolder {
    std::string path;

    // In `base` when given, else in the system's temporary folder.
    explicit ScratchFolder(const std::string &name = "delvemoor", const std::string &base = "")
    {
        const std::filesystem::path in = base.empty() ? std::filesystem::temp_directory_path() : std::filesystem::path(base);
        std::string pattern = (in / (name + "-XXXXXX")).string();
        if (mkdtemp(pattern.data()))
            path = pattern;
        EXPECT_FALSE(path.empty()) << "no scratch folder " << pattern;
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        if (!path.empty())
            std::filesystem::remove_all(path, ignored);  // a link is removed, not followed
    }
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder &operator=(const ScratchFolder &) = delete;

    std::string operator/(const std::string &name) const { return path + "/" + name; }
};

inline std::string readFile(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void writeFile(const std::string &path, const std::string &text)
{
    std::ofstream out(path, std::ios::binary);
    out << text;
}
