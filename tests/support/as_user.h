#pragma once

#include <exception>
#include <functional>
#include <grp.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace quillon::test {

/// Runs something as an ordinary user, in a child process: what it says of itself comes back, and
/// what it throws after "raised: ". As root that is the given user in the given groups, so that
/// tests of access rights mean something for root, too; else the user who runs the test.
inline std::string asUser(uid_t user, const std::vector<gid_t> &groups,
                          const std::function<std::string()> &work) {
    int ends[2];
    if (::pipe(ends) != 0)
        return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        std::string said;
        if (::geteuid() == 0 && (::setgroups(groups.size(), groups.data()) != 0 ||
                                 ::setgid(groups.at(0)) != 0 || ::setuid(user) != 0))
            said = "cannot become that user";
        else
            try {
                said = work();
            } catch (const std::exception &error) {
                said = std::string("raised: ") + error.what();
            }
        const bool told = ::write(ends[1], said.data(), said.size()) == ssize_t(said.size());
        ::_exit(told ? 0 : 1);
    }
    ::close(ends[1]);
    std::string said;
    char buffer[4096];
    for (ssize_t count; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        said.append(buffer, std::size_t(count));
    ::close(ends[0]);
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    return said;
}

} // namespace quillon::test
