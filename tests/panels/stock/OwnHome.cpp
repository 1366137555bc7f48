// The folders of this program's user; set before anything asks for them.
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

class OwnHome {
public:
    OwnHome()
    {
        if (mkdtemp(folder_.data()) == nullptr) {
            std::abort();
        }
        setenv("XDG_CONFIG_HOME", (folder_ + "/config").c_str(), 1);
        setenv("XDG_DATA_HOME", (folder_ + "/data").c_str(), 1);
        setenv("XDG_DATA_DIRS", (folder_ + "/machine:/usr/share").c_str(), 1);
    }
    OwnHome(const OwnHome&) = delete;
    OwnHome& operator=(const OwnHome&) = delete;
    ~OwnHome() { std::filesystem::remove_all(folder_); }

private:
    std::string folder_ = std::filesystem::temp_directory_path() / "tarvo-home-XXXXXX";
};

const OwnHome home;

} // namespace
