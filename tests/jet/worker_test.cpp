#include "jet/worker.h"

#include <gtest/gtest.h>

#include <future>
#include <stdexcept>

namespace jet {

namespace {

TEST(WorkerTest, DoesTasksOnOneThreadThatIsNotTheOwners) {
    Worker worker;
    std::thread::id first;
    std::thread::id second;
    worker.start([&] { first = std::this_thread::get_id(); });
    worker.wait();
    worker.start([&] { second = std::this_thread::get_id(); });
    worker.wait();
    EXPECT_EQ(first, second);
    EXPECT_NE(first, std::this_thread::get_id());
}

TEST(WorkerTest, TheOwnerGoesOnMeanwhile) {
    Worker worker;
    EXPECT_TRUE(worker.isDone());
    worker.wait();  // for nothing
    std::promise<void> gate;
    worker.start([&] { gate.get_future().wait(); });
    EXPECT_FALSE(worker.isDone());
    gate.set_value();
    worker.wait();
    EXPECT_TRUE(worker.isDone());
}

TEST(WorkerTest, WhatATaskThrowsIsThrownOnce) {
    Worker worker;
    worker.start([] { throw std::runtime_error("task"); });
    EXPECT_THROW(worker.wait(), std::runtime_error);
    EXPECT_NO_THROW(worker.wait());
    bool done = false;
    worker.start([&] { done = true; });
    worker.wait();
    EXPECT_TRUE(done);
}

TEST(WorkerTest, ItsEndWaitsForTheTask) {
    bool done = false;
    std::promise<void> gate;
    std::future<void> opened = gate.get_future();
    {
        Worker worker;
        worker.start([&] {
            opened.wait();
            done = true;
        });
        gate.set_value();
    }
    EXPECT_TRUE(done);
}

}  // namespace

}  // namespace jet
