#include "platform/xml/engine/forked_child.h"

#include "platform/runtime/error.h"
#include "platform/runtime/stack_limit.h"
#include "resources/child_process_texts.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <libxml/xmlmemory.h>
#include <malloc.h>
#include <new>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillon::xml {

namespace texts = resources::child_process_texts;
using runtime::error_number::Fail;

namespace {

/// The end of the pipe into which the child writes its report: the number of an error, 0 for none,
/// then its description or the result in UTF-8.
int reportPipe = -1;

void writeAll(const char *bytes, qsizetype size) {
    while (size > 0) {
        const ssize_t count = ::write(reportPipe, bytes, std::size_t(size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            ::_exit(EXIT_FAILURE);
        bytes += count;
        size -= count;
    }
}

[[noreturn]] void report(qint32 number, const QByteArray &content) {
    std::array<char, sizeof number> head;
    std::memcpy(head.data(), &number, sizeof number);
    writeAll(head.data(), head.size());
    writeAll(content.constData(), content.size());
    // Nothing of the parent's may be flushed, released or run at the end of its copy.
    ::_exit(EXIT_SUCCESS);
}

/// What libxml2 allocates in the child is counted. Its callers do not all survive a failed
/// allocation, so the child ends at the first one.
namespace counted {

qint64 allowed = 0;

[[noreturn]] void exhausted() {
    // The report itself needs some memory, which the limit leaves free.
    report(Fail, texts::MemoryLimit.toString().toUtf8());
}

void *checked(void *block) {
    if (block)
        allowed -= qint64(::malloc_usable_size(block));
    if (!block || allowed < 0)
        exhausted();
    return block;
}

void *allocate(std::size_t size) {
    if (qint64(size) > allowed)
        exhausted();
    return checked(std::malloc(size));
}

void release(void *block) {
    if (block)
        allowed += qint64(::malloc_usable_size(block));
    std::free(block);
}

void *reallocate(void *block, std::size_t size) {
    if (block)
        allowed += qint64(::malloc_usable_size(block));
    if (qint64(size) > allowed)
        exhausted();
    return checked(std::realloc(block, size));
}

char *duplicate(const char *string) {
    const std::size_t size = std::strlen(string) + 1;
    return static_cast<char *>(std::memcpy(allocate(size), string, size));
}

} // namespace counted

[[noreturn]] void runAsChild(const std::function<QByteArray()> &work, const ChildLimits &limits) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    runtime::raiseStackLimit();
    // A crash is the parent's to report: no dump, no handler of the parent's.
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    for (const int signal : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGPIPE})
        ::signal(signal, SIG_DFL);
    // Millions of small blocks that are seldom released: fetch memory in large pieces and do not
    // gather the blocks that have been released over and over again.
    ::mallopt(M_MXFAST, 0);
    ::mallopt(M_TOP_PAD, 16 << 20);
    counted::allowed = limits.memory;
    xmlMemSetup(counted::release, counted::allocate, counted::reallocate, counted::duplicate);
    try {
        report(0, work());
    } catch (const runtime::Error &error) {
        report(error.number(), error.description().toUtf8());
    } catch (const std::bad_alloc &) {
        counted::exhausted();
    } catch (...) {
        std::abort();
    }
}

/// The processor time that a process has taken so far.
std::chrono::nanoseconds processorTime(pid_t process) {
    clockid_t clock{};
    timespec taken{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &taken) != 0)
        return {};
    return std::chrono::seconds(taken.tv_sec) + std::chrono::nanoseconds(taken.tv_nsec);
}

/// Waits for the end of a child, unless `options` say that it is only to be looked at. Returns
/// whether it has ended.
bool hasEnded(pid_t child, int options, int *status = nullptr) {
    pid_t ended = -1;
    while ((ended = ::waitpid(child, status, options)) < 0 && errno == EINTR) {
    }
    return ended != 0;
}

/// Children that have been killed: taking their memory apart takes time, for which nobody waits.
std::vector<pid_t> dying;

void forgetTheDead() {
    std::erase_if(dying, [](pid_t child) { return hasEnded(child, WNOHANG); });
}

} // namespace

ForkedChild::ForkedChild(const std::function<QByteArray()> &work, const ChildLimits &limits)
    : time_(limits.time) {
    forgetTheDead();
    std::array<int, 2> ends;
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        runtime::raise(runtime::error_number::OutOfMemory);
    process_ = ::fork();
    if (process_ == 0) {
        ::close(ends[0]);
        reportPipe = ends[1];
        runAsChild(work, limits);
    }
    ::close(ends[1]);
    pipe_ = ends[0];
    if (process_ < 0) {
        ::close(pipe_);
        runtime::raise(runtime::error_number::OutOfMemory);
    }
}

ForkedChild::~ForkedChild() {
    ::close(pipe_);
    if (process_ < 0)
        return;
    ::kill(process_, SIGKILL);
    dying.push_back(process_);
    forgetTheDead();
}

bool ForkedChild::read() {
    std::array<char, 65536> block;
    ssize_t count = -1;
    while ((count = ::read(pipe_, block.data(), block.size())) < 0 && errno == EINTR) {
    }
    if (count > 0)
        report_.append(block.data(), count);
    return count > 0;
}

void ForkedChild::checkTime() const {
    if (processorTime(process_) > time_)
        throw runtime::Error(Fail, texts::TimeLimit.toString());
}

QByteArray ForkedChild::result() {
    int status = 0;
    hasEnded(std::exchange(process_, -1), 0, &status);
    qint32 number = 0;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != EXIT_SUCCESS ||
        report_.size() < qsizetype(sizeof number))
        throw runtime::Error(Fail, texts::Died.toString());
    std::memcpy(&number, report_.constData(), sizeof number);
    report_.remove(0, sizeof number);
    if (number != 0)
        throw runtime::Error(number, QString::fromUtf8(report_));
    return report_;
}

} // namespace quillon::xml
