// Ctrl+C and the system's request to end while a program works, and whether somebody watches it.
#include "platform/processes.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <memory>
#include <pty.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pistaro {
namespace {

int taken = 0; ///< signals that came to the handler of whoever watched before

void Take(int) { ++taken; }

using Handler = void (*)(int);

Handler HandlerOf(int signal) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    return action.sa_handler;
}

/// Both signals with a handler of the test's own for as long as it lives.
class Interruption : public testing::Test {
protected:
    Interruption() {
        taken = 0;
        struct sigaction action {};
        action.sa_handler = Take;
        ::sigaction(SIGINT, &action, &before_[0]);
        ::sigaction(SIGTERM, &action, &before_[1]);
    }
    ~Interruption() override {
        ::sigaction(SIGINT, &before_[0], nullptr);
        ::sigaction(SIGTERM, &before_[1], nullptr);
    }

    /// Whether a stop is asked for within ten seconds.
    static bool ComesToStop(const std::stop_token& stop) {
        using namespace std::chrono_literals;
        for (int i = 0; i < 1000 && !stop.stop_requested(); ++i)
            std::this_thread::sleep_for(10ms);
        return stop.stop_requested();
    }

private:
    struct sigaction before_[2]{};
};

TEST_F(Interruption, AsksForAStopInPlaceOfEndingTheProgram) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const Interruptions interruptions;
        const std::stop_token stop = interruptions.Stop();
        EXPECT_FALSE(stop.stop_requested()) << signal;

        std::raise(signal);

        EXPECT_TRUE(ComesToStop(stop)) << signal;
    }
    EXPECT_EQ(taken, 0);
}

TEST_F(Interruption, MayComeOftenerThanOnce) {
    const Interruptions interruptions;
    for (const int signal : {SIGINT, SIGINT, SIGTERM, SIGINT})
        std::raise(signal);

    EXPECT_TRUE(ComesToStop(interruptions.Stop()));
}

TEST_F(Interruption, ComesToTheFormerHandlersAgainAfterTheWork) {
    {
        const Interruptions interruptions;
        EXPECT_NE(HandlerOf(SIGINT), Take);
        EXPECT_NE(HandlerOf(SIGTERM), Take);
    }

    EXPECT_EQ(HandlerOf(SIGINT), Take);
    EXPECT_EQ(HandlerOf(SIGTERM), Take);
    std::raise(SIGINT);
    std::raise(SIGTERM);
    EXPECT_EQ(taken, 2);
}

TEST_F(Interruption, ThatWhoStartedTheProgramHasShutOutStaysSo) {
    std::signal(SIGINT, SIG_IGN);

    const Interruptions interruptions;

    EXPECT_EQ(HandlerOf(SIGINT), SIG_IGN);
    EXPECT_NE(HandlerOf(SIGTERM), SIG_IGN);
}

TEST_F(Interruption, OfEarlierWorkDoesNotStopTheNext) {
    auto interruptions = std::make_unique<Interruptions>();
    std::raise(SIGINT);
    EXPECT_TRUE(ComesToStop(interruptions->Stop()));
    interruptions.reset();

    const Interruptions next;

    EXPECT_FALSE(next.Stop().stop_requested());
    std::raise(SIGINT);
    EXPECT_TRUE(ComesToStop(next.Stop()));
}

TEST_F(Interruption, LeavesAStopThatOutlivesTheWork) {
    std::stop_token stop;
    {
        const Interruptions interruptions;
        stop = interruptions.Stop();
        std::raise(SIGINT);
        EXPECT_TRUE(ComesToStop(stop));
    }

    EXPECT_TRUE(stop.stop_requested());
}

/// Whether the standard error is a terminal for a child process whose standard error `arrange` has arranged.
bool IsTerminalInChild(const std::function<void()>& arrange) {
    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        arrange();
        ::_exit(StandardErrorIsTerminal() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(terminal);
    return WEXITSTATUS(status) == 1;
}

TEST(StandardError, IsReadAsItIsPrintedOnATerminalOnly) {
    EXPECT_TRUE(IsTerminalInChild([] {}));
    EXPECT_FALSE(IsTerminalInChild([] {
        int ends[2]{};
        if (::pipe(ends) == 0) ::dup2(ends[1], STDERR_FILENO);
    }));
    EXPECT_FALSE(IsTerminalInChild([] { ::close(STDERR_FILENO); }));
}

} // namespace
} // namespace pistaro
