#include "jet/worker.h"

#include <system_error>
#include <utility>

namespace jet {

Worker::~Worker() {
    if (!thread_.joinable()) return;
    {
        const std::scoped_lock lock(mutex_);
        isOver_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void Worker::start(std::function<void()> task) {
    {
        const std::scoped_lock lock(mutex_);
        task_ = std::move(task);
        isDone_ = false;
    }
    changed_.notify_all();
    if (thread_.joinable()) return;
    try {
        thread_ = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        doTask();
    }
}

bool Worker::isDone() const {
    const std::scoped_lock lock(mutex_);
    return isDone_;
}

void Worker::wait() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isDone_; });
    if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
}

void Worker::run() {
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return !isDone_ || isOver_; });
            if (isDone_) return;
        }
        doTask();
    }
}

void Worker::doTask() noexcept {
    std::exception_ptr error;
    try {
        task_();
    } catch (...) {
        error = std::current_exception();
    }
    {
        const std::scoped_lock lock(mutex_);
        error_ = error;
        isDone_ = true;
    }
    changed_.notify_all();
}

}  // namespace jet
