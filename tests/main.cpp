// Runs the tests in an empty root directory of their own, where the fixed paths are real and free:
// by chroot, for an ordinary user in a user namespace of its own.

#include <err.h>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

int main(int argc, char** argv) {
    std::string unshare = "unshare", as_root = "--map-root-user", root = "/tmp/tzpublish-XXXXXX";
    std::vector<char*> command(argv, argv + argc + 1);
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (::geteuid() != 0) {
        command.insert(command.begin(), {unshare.data(), as_root.data()});
        ::execvp(unshare.c_str(), command.data());
    }
    const int old_root = ::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (::mkdtemp(root.data()) == nullptr || ::chroot(root.c_str()) != 0 || ::chdir("/") != 0)
        ::err(1, "%s", root.c_str());
    std::filesystem::create_directory("/tmp");
    const int result = RUN_ALL_TESTS();
    // Out again, to remove the directory; and the leak checker, which runs at exit, needs /proc.
    if (::fchdir(old_root) != 0 || ::chroot(".") != 0)
        ::err(1, "leaving %s", root.c_str());
    std::filesystem::remove_all(root);
    return result;
}
