// Cache lines in allocation queries.
#include "allocation.hpp"

#include <gst/video/gstvideopool.h>

#include <algorithm>

namespace orva::gst {
namespace {

constexpr gsize cacheLineMask = 63;

// A pool that refuses what is asked of it gets back what it had: it may have taken a part.
void configure(GstBufferPool* pool, GstStructure* config) {
    GstStructure* const before = gst_buffer_pool_get_config(pool);
    if (gst_buffer_pool_set_config(pool, config)) {
        gst_structure_free(before);
    } else {
        gst_buffer_pool_set_config(pool, before);
    }
}

void alignPool(GstBufferPool* pool) {
    GstStructure* config = gst_buffer_pool_get_config(pool);
    GstAllocator* allocator = nullptr;
    GstAllocationParams params;
    gst_allocation_params_init(&params);
    gst_buffer_pool_config_get_allocator(config, &allocator, &params);
    params.align = std::max(params.align, cacheLineMask);
    gst_buffer_pool_config_set_allocator(config, allocator, &params);
    configure(pool, config);
}

}  // namespace

void alignAllocation(GstQuery* query) {
    GstAllocator* allocator = nullptr;
    GstAllocationParams params;
    gst_allocation_params_init(&params);
    if (gst_query_get_n_allocation_params(query) > 0) {
        gst_query_parse_nth_allocation_param(query, 0, &allocator, &params);
        params.align = std::max(params.align, cacheLineMask);
        gst_query_set_nth_allocation_param(query, 0, allocator, &params);
        gst_clear_object(&allocator);
    } else {
        params.align = cacheLineMask;
        gst_query_add_allocation_param(query, nullptr, &params);
    }
    for (guint i = 0; i < gst_query_get_n_allocation_pools(query); ++i) {
        GstBufferPool* pool = nullptr;
        gst_query_parse_nth_allocation_pool(query, i, &pool, nullptr, nullptr, nullptr);
        if (pool) {
            alignPool(pool);
            gst_object_unref(pool);
        }
    }
}

void alignRows(GstQuery* query) {
    GstBufferPool* pool = nullptr;
    gst_query_parse_nth_allocation_pool(query, 0, &pool, nullptr, nullptr, nullptr);
    if (gst_buffer_pool_has_option(pool, GST_BUFFER_POOL_OPTION_VIDEO_ALIGNMENT)) {
        GstStructure* config = gst_buffer_pool_get_config(pool);
        GstVideoAlignment alignment;
        gst_video_alignment_reset(&alignment);
        // A receiver's own pool may have asked for room around the picture already.
        gst_buffer_pool_config_get_video_alignment(config, &alignment);
        for (guint& mask : alignment.stride_align) {
            mask |= cacheLineMask;
        }
        gst_buffer_pool_config_add_option(config, GST_BUFFER_POOL_OPTION_VIDEO_META);
        gst_buffer_pool_config_add_option(config, GST_BUFFER_POOL_OPTION_VIDEO_ALIGNMENT);
        gst_buffer_pool_config_set_video_alignment(config, &alignment);
        configure(pool, config);
    }
    gst_object_unref(pool);
}

}  // namespace orva::gst
