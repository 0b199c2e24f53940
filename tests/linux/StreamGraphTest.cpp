// SPDX-License-Identifier: MIT
#include "linux/pipewire/PipeWireCaptureWatch.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

StreamGraph::Properties node(const char* mediaClass, const char* key = nullptr, const char* value = "") {
  StreamGraph::Properties properties{{QStringLiteral("media.class"), QLatin1String(mediaClass)}};
  if (key) properties.insert(QLatin1String(key), QLatin1String(value));
  return properties;
}

struct Row {
  const char* what;
  StreamGraph::Properties source;
  bool isCast;
};
class AVideoStream : public testing::TestWithParam<Row> {};

TEST_P(AVideoStream, IsACastWhenItIsNoCameraAndSomebodyReadsIt) {
  StreamGraph graph;
  graph.addNode(40, GetParam().source);
  EXPECT_FALSE(graph.isCasting()) << "nobody reads it yet";
  graph.addLink(50, 40);
  EXPECT_EQ(graph.isCasting(), GetParam().isCast) << GetParam().what;
  graph.remove(50);
  EXPECT_FALSE(graph.isCasting()) << "the reader went";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AVideoStream,
    testing::Values(Row{"a compositor's cast", node("Stream/Output/Video", "media.name", "kwin-screencast"), true},
                    Row{"a portal's source", node("Video/Source", "node.name", "xdpw-stream"), true},
                    Row{"a camera by its device", node("Video/Source", "device.id", "31"), false},
                    Row{"a camera by its name", node("Video/Source", "node.name", "v4l2_input.usb"), false},
                    Row{"music", node("Stream/Output/Audio"), false}));

TEST(ACast, EndsWhenItsStreamGoesBeforeItsLinks) {
  StreamGraph graph;
  graph.addLink(50, 40);  // the registry promises no order
  graph.addNode(40, node("Stream/Output/Video"));
  EXPECT_TRUE(graph.isCasting());
  graph.remove(40);
  EXPECT_FALSE(graph.isCasting());
}

}  // namespace
}  // namespace tarnwick
