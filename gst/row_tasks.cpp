// Ranges of rows on the threads of one of GStreamer's pools.
#include "row_tasks.hpp"

#include <algorithm>
#include <vector>

namespace orva::gst {
namespace {

struct Task {
    const std::function<Result(RowRange)>* work = nullptr;
    RowRange rows;
    Result result;
    gpointer id = nullptr;

    void run() { result = (*work)(rows); }
};

void runTask(void* task) { static_cast<Task*>(task)->run(); }

}  // namespace

RowTasks::RowTasks(unsigned threads) : threads(threads) {
    if (threads > 1) {
        pool = gst_shared_task_pool_new();
        gst_shared_task_pool_set_max_threads(GST_SHARED_TASK_POOL(pool), threads - 1);
        gst_task_pool_prepare(pool, nullptr);
    }
}

RowTasks::~RowTasks() {
    if (pool) {
        gst_task_pool_cleanup(pool);
        gst_object_unref(pool);
    }
}

Result RowTasks::run(std::uint32_t height, const std::function<Result(RowRange)>& work) const {
    const std::uint64_t count = std::min(threads, height);
    const auto rowAt = [&](std::uint64_t i) {
        return static_cast<std::uint32_t>(height * i / count);
    };
    std::vector<Task> tasks(count);
    for (std::uint64_t i = 0; i < count; ++i) {
        tasks[i].work = &work;
        tasks[i].rows = {rowAt(i), rowAt(i + 1) - rowAt(i)};
    }
    for (std::uint64_t i = 1; i < count; ++i) {
        tasks[i].id = gst_task_pool_push(pool, runTask, &tasks[i], nullptr);
    }
    for (Task& task : tasks) {
        // The first one is this thread's, and whatever found no other.
        if (task.id) {
            gst_task_pool_join(pool, task.id);
        } else {
            task.run();
        }
    }
    const auto refused = std::ranges::find_if(tasks, [](const Task& task) { return !task.result; });
    return refused == tasks.end() ? Result{} : refused->result;
}

}  // namespace orva::gst
