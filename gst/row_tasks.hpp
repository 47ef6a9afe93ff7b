// The rows of a picture in ranges, one for each of some threads that wait between pictures.
#pragma once

#include <gst/gst.h>
#include <orva/convert.hpp>

#include <functional>

namespace orva::gst {

class RowTasks {
public:
    // Of that many threads the caller's is one.
    explicit RowTasks(unsigned threads);
    ~RowTasks();
    RowTasks(const RowTasks&) = delete;
    RowTasks& operator=(const RowTasks&) = delete;

    // Calls `work` for all rows, on all threads at once; returns a refusal if there was one.
    Result run(std::uint32_t height, const std::function<Result(RowRange)>& work) const;

private:
    unsigned threads;
    GstTaskPool* pool = nullptr;  // of the other threads, if there are any
};

}  // namespace orva::gst
