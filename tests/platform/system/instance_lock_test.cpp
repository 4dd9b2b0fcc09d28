#include "platform/system/instance_lock.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

using quillon::system::InstanceLock;

namespace {

TEST(InstanceLock, NoticesEveryInstanceThatRuns) {
    const QTemporaryDir folder;
    std::optional<InstanceLock> first(std::in_place, folder.path());
    EXPECT_TRUE(first->startedAlone());
    std::optional<InstanceLock> second(std::in_place, folder.path());
    EXPECT_FALSE(second->startedAlone());

    // The second has outlived the first.
    first.reset();
    std::optional<InstanceLock> third(std::in_place, folder.path());
    EXPECT_FALSE(third->startedAlone());

    second.reset();
    third.reset();
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::Files));
    EXPECT_TRUE(InstanceLock(folder.path()).startedAlone());
}

TEST(InstanceLock, IsNotKeptByAProcessThatCrashed) {
    const QTemporaryDir folder;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const InstanceLock lock(folder.path());
        // Without running any destructor, as a crash does.
        _exit(lock.startedAlone() ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    ASSERT_FALSE(QDir(folder.path()).isEmpty(QDir::Files));
    EXPECT_TRUE(InstanceLock(folder.path()).startedAlone());
}

TEST(InstanceLock, DoesWithoutAFolder) {
    EXPECT_TRUE(InstanceLock(QStringLiteral("/nonexistent/folder")).startedAlone());
}

} // namespace
