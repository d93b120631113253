// Jobs beside their owner: what arrives where, in which order, and what a cancelled one leaves.
#include "commands/jobs.h"

#include "commands/posted_calls.h"

#include <gmock/gmock.h>

#include <atomic>
#include <iostream>
#include <random>

namespace pistaro {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

/// Works until it is stopped.
JobEnd UntilStopped(const JobWatch& watch) {
    while (true)
        watch.Step(1, 1);
}

Job Nameless(JobWork work) { return {{}, {}, std::move(work)}; }

class JobsTest : public testing::Test {
protected:
    void RunBeside() {
        jobs_.RunBeside([&](std::function<void()> call) { calls_.Put(std::move(call)); });
    }

    /// Starts a job; what comes of it is written into log_.
    void Start(JobWork work) {
        jobs_.Start(
            Nameless(std::move(work)),
            [&](const JobEnd& end) {
                try {
                    end();
                } catch (const std::exception& fault) {
                    log_.push_back(std::string("fault: ") + fault.what());
                }
                ExpectOwnersThread();
            },
            [&](int done, int total) {
                log_.push_back(std::to_string(done) + " of " + std::to_string(total));
                ExpectOwnersThread();
            });
    }

    /// An end that writes `text` into the log.
    JobEnd Logged(const std::string& text) {
        return [this, text] { log_.push_back(text); };
    }

    /// A job that ends at once.
    JobWork Quick(const std::string& text) {
        return [this, text](const JobWatch&) { return Logged(text); };
    }

    void MakeCalls(int count) {
        for (; count > 0; --count)
            calls_.Take()();
    }

    void ExpectOwnersThread() const { EXPECT_EQ(std::this_thread::get_id(), owner_); }

    PostedCalls calls_;
    std::vector<std::string> log_;
    const std::thread::id owner_ = std::this_thread::get_id();
    Jobs jobs_;
};

} // namespace

TEST_F(JobsTest, RunAtOnceWhenNobodyAskedThemToRunBeside) {
    std::thread::id worker;

    Start([&](const JobWatch& watch) {
        worker = std::this_thread::get_id();
        watch.Step(0, 2);
        watch.Step(1, 2);
        return Logged("end");
    });

    EXPECT_EQ(worker, owner_);
    EXPECT_THAT(log_, ElementsAre("0 of 2", "1 of 2", "end"));
    EXPECT_FALSE(jobs_.IsRunning());
}

TEST_F(JobsTest, GiveTheFaultOfAJobThatRunsAtOnceToItsEnd) {
    Start([](const JobWatch&) -> JobEnd { throw std::runtime_error("no memory"); });

    EXPECT_THAT(log_, ElementsAre("fault: no memory"));
}

TEST_F(JobsTest, RunBesideTheirOwnerWhoHearsOfThemInOrder) {
    RunBeside();
    std::thread::id worker;

    Start([&](const JobWatch& watch) {
        worker = std::this_thread::get_id();
        for (int done = 0; done <= 3; ++done)
            watch.Step(done, 3);
        return Logged("end");
    });
    calls_.WaitFor(5);
    EXPECT_TRUE(jobs_.IsRunning());
    EXPECT_THAT(log_, IsEmpty()) << "what was posted has not been called yet";

    MakeCalls(5);

    EXPECT_NE(worker, owner_);
    EXPECT_THAT(log_, ElementsAre("0 of 3", "1 of 3", "2 of 3", "3 of 3", "end"));
    EXPECT_FALSE(jobs_.IsRunning());
}

TEST_F(JobsTest, TellAFaultByTheEnd) {
    RunBeside();

    Start([](const JobWatch& watch) -> JobEnd {
        watch.Step(0, 1);
        throw std::runtime_error("no memory");
    });
    MakeCalls(2);

    EXPECT_THAT(log_, ElementsAre("0 of 1", "fault: no memory"));
    EXPECT_FALSE(jobs_.IsRunning());
}

TEST_F(JobsTest, MayBeStartedByTheEndOfAnother) {
    RunBeside();

    Start([&](const JobWatch&) -> JobEnd {
        return [&] {
            EXPECT_FALSE(jobs_.IsRunning());
            Start(Quick("second"));
        };
    });
    MakeCalls(1);
    EXPECT_TRUE(jobs_.IsRunning());
    MakeCalls(1);

    EXPECT_THAT(log_, ElementsAre("second"));
}

TEST_F(JobsTest, ThatAreCancelledAreAskedToStopAndWaitedFor) {
    RunBeside();
    std::atomic<bool> stopped = false;
    Start([&](const JobWatch& watch) -> JobEnd {
        try {
            return UntilStopped(watch);
        } catch (const Stopped&) {
            std::this_thread::sleep_for(5ms);
            stopped = true;
            throw;
        }
    });
    calls_.WaitFor(1);

    jobs_.Cancel();

    EXPECT_TRUE(stopped);
    EXPECT_FALSE(jobs_.IsRunning());
    calls_.MakeAll();
    EXPECT_THAT(log_, IsEmpty()) << "neither progress nor end is told";
}

TEST_F(JobsTest, ThatAreCancelledDoNotEndThoughTheirEndIsPosted) {
    RunBeside();
    Start(Quick("end"));
    calls_.WaitFor(1);

    jobs_.Cancel();
    calls_.MakeAll();

    EXPECT_THAT(log_, IsEmpty());
}

TEST_F(JobsTest, MayBeCancelledByTheirOwnProgress) {
    RunBeside();
    jobs_.Start(
        Nameless(UntilStopped), [&](const JobEnd&) { log_.push_back("end"); },
        [&](int, int) {
            log_.push_back("cancelled");
            jobs_.Cancel();
        });

    MakeCalls(1);
    calls_.MakeAll();

    EXPECT_THAT(log_, ElementsAre("cancelled"));
    EXPECT_FALSE(jobs_.IsRunning());
}

TEST_F(JobsTest, CancellingAnswersBeforeAnybodyNotices) {
    RunBeside();
    auto fastest = std::chrono::steady_clock::duration::max();
    for (int i = 0; i < 5; ++i) { // the machine may have been busy elsewhere
        Start([](const JobWatch& watch) -> JobEnd {
            while (true) {
                watch.Step(0, 0);
                std::this_thread::sleep_for(1ms);
            }
        });
        calls_.WaitFor(1);
        const auto start = std::chrono::steady_clock::now();
        jobs_.Cancel();
        fastest = std::min(fastest, std::chrono::steady_clock::now() - start);
        calls_.MakeAll();
    }

    EXPECT_LT(fastest, 50ms);
}

TEST_F(JobsTest, CancellingNothingDoesNothing) {
    jobs_.Cancel();
    RunBeside();
    jobs_.Cancel();

    EXPECT_FALSE(jobs_.IsRunning());
}

TEST_F(JobsTest, StartingOneCancelsTheOneThatRuns) {
    RunBeside();
    std::atomic<bool> firstStopped = false;
    Start([&](const JobWatch& watch) -> JobEnd {
        try {
            return UntilStopped(watch);
        } catch (const Stopped&) {
            firstStopped = true;
            throw;
        }
    });
    calls_.WaitFor(1);

    Start([&](const JobWatch&) {
        EXPECT_TRUE(firstStopped) << "only one runs at a time";
        return Logged("second");
    });
    while (jobs_.IsRunning())
        MakeCalls(1);

    EXPECT_THAT(log_, ElementsAre("second"));
}

TEST_F(JobsTest, AreStoppedBeforeTheOneThatTheirOwnProgressStarts) {
    RunBeside();
    std::atomic<bool> firstStopped = false;
    jobs_.Start(
        Nameless([&](const JobWatch& watch) -> JobEnd {
            try {
                return UntilStopped(watch);
            } catch (const Stopped&) {
                firstStopped = true;
                throw;
            }
        }),
        [&](const JobEnd&) { log_.push_back("first"); },
        [&](int, int) {
            Start(Quick("second"));
            EXPECT_TRUE(firstStopped);
        });

    MakeCalls(1);
    while (jobs_.IsRunning())
        MakeCalls(1);

    EXPECT_THAT(log_, ElementsAre("second"));
}

TEST_F(JobsTest, AreStoppedAndWaitedForWhenTheirOwnerGoes) {
    std::atomic<bool> stopped = false;
    {
        Jobs jobs;
        jobs.RunBeside([&](std::function<void()> call) { calls_.Put(std::move(call)); });
        jobs.Start(Nameless([&](const JobWatch& watch) -> JobEnd {
                       try {
                           return UntilStopped(watch);
                       } catch (const Stopped&) {
                           stopped = true;
                           throw;
                       }
                   }),
                   [&](const JobEnd&) { log_.push_back("end"); }, {});
        calls_.WaitFor(1);
    }

    EXPECT_TRUE(stopped);
    calls_.MakeAll();
    EXPECT_THAT(log_, IsEmpty());
}

TEST_F(JobsTest, AThousandWithCancelsAtRandomEachEndOnceOrNotAtAll) {
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    std::mt19937 random(seed);
    RunBeside();
    int ended = 0;
    int expected = 0;
    for (int i = 0; i < 1000; ++i) {
        const int steps = static_cast<int>(random() % 4);
        jobs_.Start(Nameless([steps](const JobWatch& watch) -> JobEnd {
                        for (int step = 0; step < steps; ++step)
                            watch.Step(step, steps);
                        return [] {};
                    }),
                    [&, i](const JobEnd& end) {
                        end();
                        EXPECT_EQ(++ended, expected + 1) << "job " << i;
                    },
                    {});
        switch (random() % 4) {
        case 0: // at once
            jobs_.Cancel();
            break;
        case 1: // when all of it is posted
            calls_.WaitFor(static_cast<std::size_t>(steps) + 1);
            jobs_.Cancel();
            break;
        case 2: // by the next one
            break;
        default:
            while (jobs_.IsRunning())
                MakeCalls(1);
            ++expected;
        }
        if (random() % 2 == 0 || !jobs_.IsRunning()) {
            jobs_.Cancel();
            calls_.MakeAll();
        }
        ASSERT_EQ(ended, expected);
    }
    jobs_.Cancel();
    calls_.MakeAll();

    EXPECT_EQ(ended, expected);
    EXPECT_GT(ended, 100);
}

} // namespace pistaro
