// Runs the tests in an empty root directory of their own, where the fixed paths are real and free:
// by chroot, for an ordinary user in a user namespace of its own.

#include <cerrno>
#include <err.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <unistd.h>

static void become_root_of_a_user_namespace() {
    const auto user = std::to_string(::geteuid()), group = std::to_string(::getegid());
    if (::unshare(CLONE_NEWUSER) != 0)
        ::err(1, "run the tests as root, or allow user namespaces");
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " + user + " 1";
    std::ofstream("/proc/self/gid_map") << "0 " + group + " 1";
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    std::string root = "/tmp/tzpublish-tests-XXXXXX", name = "tzpublish";
    ::program_invocation_short_name = name.data();
    if (::geteuid() != 0)
        become_root_of_a_user_namespace();
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
