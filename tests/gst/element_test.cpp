// The element makes the bytes that the library makes, of frames wherever they lie and streams that
// change, and passes on what need not change.
#include "gst/frames.hpp"

#include <gtest/gtest.h>

using namespace test;

namespace {

constexpr int sizes[][2] = {{1, 1}, {5, 3}, {64, 8}, {335, 7}};

orva::Options sdOptions(int alpha = 255) {
    orva::Options options{.srcMatrix = orva::Matrix::bt601, .dstMatrix = orva::Matrix::bt601};
    options.alpha = alpha;
    return options;
}

TEST(Element, MakesTheLibrarysBytesOfEveryPair) {
    Random random(1);
    for (const NamedFormat& from : namedFormats) {
        for (const NamedFormat& to : namedFormats) {
            for (const auto& [width, height] : sizes) {
                const std::string in = capsOf(from.name, width, height);
                const std::string out = capsOf(to.name, width, height);
                const int alpha = static_cast<int>(pick(random, 256));
                Element element(in, out,
                                "n-threads=" + std::to_string(1 + pick(random, 4)) +
                                    " alpha=" + std::to_string(alpha));
                const Buffer frame = plainFrame(in, random);
                EXPECT_TRUE(isConverted(frame, in, element(frame), out, sdOptions(alpha)))
                    << in << " to " << out;
            }
        }
    }
}

// Which go out past the cache, whole or in strips.
TEST(Element, ConvertsLargeFrames) {
    Random random(12);
    for (const char* from : {"YUY2", "BGRx", "BGRA"}) {
        const std::string in = capsOf(from, 1023, 511), out = capsOf("RGBA", 1023, 511);
        Element element(in, out, "n-threads=3 alpha=99");
        const Buffer frame = plainFrame(in, random);
        EXPECT_TRUE(isConverted(frame, in, element(frame), out, sdOptions(99))) << in;
    }
}

TEST(Element, TakesStridesThatChangeFromFrameToFrame) {
    Random random(2);
    for (const char* from : {"UYVY", "NV16", "Y42B", "v210", "BGR", "RGBx"}) {
        const std::string in = capsOf(from, 61, 9), out = capsOf("BGRA", 61, 9);
        Element element(in, out, "n-threads=2");
        for (const bool isInPieces : {false, true, false, true}) {
            const Buffer padded = paddedFrame(in, random, isInPieces);
            EXPECT_TRUE(isConverted(padded, in, element(padded), out, sdOptions())) << from;
            const Buffer plain = plainFrame(in, random);
            EXPECT_TRUE(isConverted(plain, in, element(plain), out, sdOptions())) << from;
        }
    }
}

// A frame that runs upwards, and strides that lead out of the buffer in either direction.
TEST(Element, TakesStridesUpwardsAndRefusesThoseThatLeaveTheBuffer) {
    Random random(3);
    const std::string in = capsOf("UYVY", 16, 4), out = capsOf("BGR", 16, 4);
    const auto push = [&](gsize offset, gint stride) {
        Element element(in, out);
        const Buffer frame = plainFrame(in, random);
        gst_buffer_add_video_meta_full(frame.get(), GST_VIDEO_FRAME_FLAG_NONE,
                                       GST_VIDEO_FORMAT_UYVY, 16, 4, 1, &offset, &stride);
        const GstFlowReturn flow = gst_harness_push(element.harness, gst_buffer_ref(frame.get()));
        const Buffer made(gst_harness_try_pull(element.harness));
        return flow == GST_FLOW_OK && isConverted(frame, in, made, out, sdOptions());
    };
    EXPECT_TRUE(push(96, -32));
    EXPECT_FALSE(push(64, -32));
    EXPECT_FALSE(push(0, 36));
    EXPECT_FALSE(push(0, 16));
}

TEST(Element, FollowsAStreamThatChanges) {
    Random random(4);
    Element element;
    const auto expectFrames = [&](const std::string& in, const std::string& out) {
        const Buffer frame = plainFrame(in, random);
        for (int i = 0; i < 2; ++i) {
            EXPECT_TRUE(isConverted(frame, in, element(frame), out, sdOptions()))
                << in << " to " << element.outCaps();
        }
    };
    gst_harness_set_sink_caps_str(element.harness, "video/x-raw,format={BGRA,v210}");
    gst_harness_set_src_caps_str(element.harness, capsOf("UYVY", 48, 4).c_str());
    expectFrames(capsOf("UYVY", 48, 4), capsOf("v210", 48, 4));

    gst_harness_set_src_caps_str(element.harness, capsOf("RGB", 33, 5).c_str());
    expectFrames(capsOf("RGB", 33, 5), capsOf("BGRA", 33, 5));

    // The receiver changes its mind.
    gst_harness_set_sink_caps_str(element.harness, "video/x-raw,format=NV16");
    gst_harness_push_upstream_event(element.harness, gst_event_new_reconfigure());
    expectFrames(capsOf("RGB", 33, 5), capsOf("NV16", 33, 5));

    GstSegment segment;
    gst_segment_init(&segment, GST_FORMAT_TIME);
    EXPECT_TRUE(gst_harness_push_event(element.harness, gst_event_new_flush_start()));
    EXPECT_EQ(gst_harness_push(element.harness, plainFrame(capsOf("RGB", 33, 5), random).release()),
              GST_FLOW_FLUSHING);
    EXPECT_TRUE(gst_harness_push_event(element.harness, gst_event_new_flush_stop(TRUE)));
    EXPECT_TRUE(gst_harness_push_event(element.harness, gst_event_new_segment(&segment)));
    expectFrames(capsOf("RGB", 33, 5), capsOf("NV16", 33, 5));
}

TEST(Element, TakesPropertiesWhileItRuns) {
    Random random(5);
    const std::string in = capsOf("YUY2", 40, 6), out = capsOf("RGBA", 40, 6);
    Element element(in, out, "n-threads=0");
    const Buffer frame = plainFrame(in, random);
    EXPECT_TRUE(isConverted(frame, in, element(frame), out, sdOptions()));
    gst_harness_set(element.harness, "orvaconvert", "alpha", 7, "chroma", 1, nullptr);
    orva::Options options = sdOptions(7);
    options.chroma = orva::Chroma::nearest;
    EXPECT_TRUE(isConverted(frame, in, element(frame), out, options));
}

TEST(Element, PassesOnWhatNeedNotChange) {
    Random random(6);
    const auto passesOn = [&](const std::string& in, const std::string& out) {
        Element element(in, out);
        const Buffer frame = plainFrame(in, random);
        return element(frame) == frame;
    };
    for (const char* field : {"", "colorimetry=bt601", "colorimetry=smpte240m,chroma-site=jpeg"}) {
        EXPECT_TRUE(passesOn(capsOf("UYVY", 40, 6, field), "video/x-raw,format={BGRA,UYVY}"))
            << field;
    }
    EXPECT_TRUE(passesOn(capsOf("UYVY", 40, 6), capsOf("UYVY", 40, 6, "colorimetry=2:4:5:1")));
    EXPECT_FALSE(passesOn(capsOf("UYVY", 40, 6), capsOf("UYVY", 40, 6, "colorimetry=bt709")));
}

TEST(Element, KeepsWhatIsAttachedToFrames) {
    Random random(7);
    const std::string in = capsOf("UYVY", 40, 6), out = capsOf("BGRA", 40, 6);
    Element element(in, out);
    const Buffer frame = plainFrame(in, random);
    GST_BUFFER_PTS(frame.get()) = 40 * GST_MSECOND;
    gst_buffer_add_video_region_of_interest_meta(frame.get(), "face", 2, 1, 8, 4);
    gst_buffer_add_video_time_code_meta_full(frame.get(), 25, 1, nullptr,
                                             GST_VIDEO_TIME_CODE_FLAGS_NONE, 10, 1, 2, 3, 0);
    const Buffer made = element(frame);
    EXPECT_EQ(GST_BUFFER_PTS(made.get()), 40 * GST_MSECOND);
    EXPECT_TRUE(gst_buffer_get_video_region_of_interest_meta_id(made.get(), 0));
    EXPECT_TRUE(gst_buffer_get_video_time_code_meta(made.get()));
}

// Both what it makes itself and what it offers to whoever fills its buffers.
TEST(Element, UsesBuffersThatBeginAtACacheLine) {
    Random random(8);
    const std::string in = capsOf("UYVY", 40, 6), out = capsOf("BGRA", 40, 6);
    Element element(in, out);
    const auto isAligned = [](const Buffer& buffer) {
        GstMapInfo map;
        gst_buffer_map(buffer.get(), &map, GST_MAP_READ);
        const auto address = reinterpret_cast<std::uintptr_t>(map.data);
        gst_buffer_unmap(buffer.get(), &map);
        return address % 64 == 0;
    };
    const Buffer frame = plainFrame(in, random);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(isAligned(element(frame)));
    }

    GstCaps* caps = gst_caps_from_string(in.c_str());
    GstQuery* query = gst_query_new_allocation(caps, TRUE);
    ASSERT_TRUE(gst_pad_peer_query(element.harness->srcpad, query));
    EXPECT_TRUE(gst_query_find_allocation_meta(query, GST_VIDEO_META_API_TYPE, nullptr));
    ASSERT_EQ(gst_query_get_n_allocation_pools(query), 1U);
    GstBufferPool* pool = nullptr;
    gst_query_parse_nth_allocation_pool(query, 0, &pool, nullptr, nullptr, nullptr);
    gst_buffer_pool_set_active(pool, TRUE);
    std::vector<Buffer> buffers;
    for (int i = 0; i < 3; ++i) {
        GstBuffer* buffer = nullptr;
        ASSERT_EQ(gst_buffer_pool_acquire_buffer(pool, &buffer, nullptr), GST_FLOW_OK);
        buffers.emplace_back(buffer);
        EXPECT_TRUE(isAligned(buffers.back()));
    }
    buffers.clear();
    gst_buffer_pool_set_active(pool, FALSE);
    gst_object_unref(pool);
    gst_query_unref(query);
    gst_caps_unref(caps);
}

// If the next element knows how rows lie; else they lie as everybody expects them.
TEST(Element, BeginsRowsAtCacheLinesWhereTheReceiverKnowsStrides) {
    Random random(10);
    const std::string in = capsOf("UYVY", 46, 6);
    for (const char* format : {"BGRA", "BGR", "NV16", "Y42B", "v210"}) {
        for (const bool knowsStrides : {true, false}) {
            const std::string out = capsOf(format, 46, 6);
            Element element;
            if (knowsStrides) {
                gst_harness_add_propose_allocation_meta(element.harness, GST_VIDEO_META_API_TYPE,
                                                        nullptr);
            }
            gst_harness_set_sink_caps_str(element.harness, out.c_str());
            gst_harness_set_src_caps_str(element.harness, in.c_str());
            const Buffer frame = plainFrame(in, random);
            const Buffer made = element(frame);
            EXPECT_TRUE(isConverted(frame, in, made, out, sdOptions())) << format;
            const GstVideoMeta* meta = gst_buffer_get_video_meta(made.get());
            if (knowsStrides) {
                ASSERT_TRUE(meta) << format;
                for (guint i = 0; i < meta->n_planes; ++i) {
                    EXPECT_EQ(meta->stride[i] % 64, 0) << format;
                    EXPECT_EQ(meta->offset[i] % 64, 0U) << format;
                }
            } else {
                const Buffer plain = plainFrame(out, random);
                EXPECT_EQ(gst_buffer_get_size(made.get()), gst_buffer_get_size(plain.get()));
            }
        }
    }
}

// Of a receiver that has rows above its frames and pixels beside them, for filters that reach out.
TEST(Element, LeavesTheRoomThatTheReceiversPoolAsksFor) {
    const auto propose = [](GstPad*, GstPadProbeInfo* info, gpointer) {
        auto* const query = GST_PAD_PROBE_INFO_QUERY(info);
        if (GST_QUERY_TYPE(query) != GST_QUERY_ALLOCATION) {
            return GST_PAD_PROBE_OK;
        }
        GstCaps* caps = nullptr;
        gst_query_parse_allocation(query, &caps, nullptr);
        constexpr guint size = 4096;
        GstBufferPool* pool = gst_video_buffer_pool_new();
        GstStructure* config = gst_buffer_pool_get_config(pool);
        gst_buffer_pool_config_set_params(config, caps, size, 0, 0);
        gst_buffer_pool_config_add_option(config, GST_BUFFER_POOL_OPTION_VIDEO_META);
        gst_buffer_pool_config_add_option(config, GST_BUFFER_POOL_OPTION_VIDEO_ALIGNMENT);
        GstVideoAlignment room;
        gst_video_alignment_reset(&room);
        room.padding_top = 8;
        gst_buffer_pool_config_set_video_alignment(config, &room);
        gst_buffer_pool_set_config(pool, config);
        gst_query_add_allocation_pool(query, pool, size, 0, 0);
        gst_query_add_allocation_meta(query, GST_VIDEO_META_API_TYPE, nullptr);
        gst_object_unref(pool);
        return GST_PAD_PROBE_HANDLED;
    };
    Random random(13);
    const std::string in = capsOf("UYVY", 46, 6), out = capsOf("BGRA", 46, 6);
    Element element;
    gst_pad_add_probe(element.harness->sinkpad, GST_PAD_PROBE_TYPE_QUERY_DOWNSTREAM, propose,
                      nullptr, nullptr);
    gst_harness_set_sink_caps_str(element.harness, out.c_str());
    gst_harness_set_src_caps_str(element.harness, in.c_str());
    const Buffer made = element(plainFrame(in, random));
    ASSERT_TRUE(made);
    const GstVideoMeta* meta = gst_buffer_get_video_meta(made.get());
    ASSERT_TRUE(meta);
    EXPECT_EQ(meta->stride[0] % 64, 0);
    EXPECT_EQ(meta->offset[0], 8U * static_cast<gsize>(meta->stride[0]));
}

// One field in each buffer, which has half of the height.
TEST(Element, ConvertsFieldsThatComeOneByOne) {
    Random random(9);
    const auto fields = [](const char* format) {
        std::string caps = capsOf(format, 40, 12, "interlace-mode=alternate");
        return caps.insert(caps.find(','), "(format:Interlaced)");
    };
    const std::string in = fields("UYVY"), out = fields("BGRA");
    Element element(in, out);
    const Buffer frame = plainFrame(in, random);
    EXPECT_TRUE(isConverted(frame, in, element(frame), out, sdOptions()));
}

}  // namespace
