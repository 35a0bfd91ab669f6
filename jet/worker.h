// A thread that does one task after the other while its owner goes on.
#pragma once

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace jet {

// For one owner, on one thread.
class Worker {
  public:
    Worker() = default;
    // Waits for the task; what it throws is lost.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // Begins a task; the one before must have been waited for. The thread is made for the first one
    // and kept; where there is none to be had, the task is done before this returns.
    void start(std::function<void()> task);
    // Whether wait() would return at once.
    bool isDone() const;
    // Waits for the task, if there is one, and throws what it threw.
    void wait();

  private:
    void run();
    void doTask() noexcept;

    mutable std::mutex mutex_;  // of all below but the thread
    std::condition_variable changed_;
    std::function<void()> task_;
    bool isDone_ = true;
    bool isOver_ = false;
    std::exception_ptr error_;
    std::thread thread_;
};

}  // namespace jet
