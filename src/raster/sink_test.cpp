// sink_test.cpp - the sink table seen from a new sink: one that only watches
// sees every dot with its program line, the Braille cell dots and the dots
// dropped outside the window; a new output ranked before the embosser takes
// the dots, sizes and feeds, and the embosser stays silent while it draws.
#include "raster/sink.h"

#include <cstdio>
#include <string>
#include <vector>

#include "core/run_state.h"
#include "raster/plot.h"
#include "support/test_env.h"

static int watching = 0, previewing = 0;
static std::vector<std::string> seen, previewed;

// Ranked after every output, so it sees what they took.
static int watch_dot(const SinkDot &d, int taken) {
  if (!watching) return 0;
  char line[96];
  snprintf(line, sizeof line, "line %d %s%s%s %d %d", run_state.line_number, d.grid ? "cell" : "figure",
           d.dropped ? " dropped" : "", taken ? " taken" : "", d.dx, d.dy);
  seen.push_back(line);
  return 0;
}

static int preview_dot(const SinkDot &d, int taken) {
  if (taken || !previewing) return 0;
  previewed.push_back("dot " + std::to_string(d.row) + " " + std::to_string(d.col) + " " + std::to_string(d.size));
  return 1;
}

static int preview_size(int *, int taken) { return !taken && previewing; }

static int preview_feed(int taken) {
  if (taken || !previewing) return 0;
  previewed.push_back("page end");
  return 1;
}

static int preview_picture() { return previewing; }

static const Sink kWatcher = {"watcher", 99, watch_dot, nullptr, nullptr, nullptr, nullptr, nullptr};
static const Sink kPreview = {"preview", RANK_BITMAP + 5, preview_dot,  nullptr,
                              preview_size, preview_feed,      nullptr, preview_picture};
[[maybe_unused]] static const int sinks_listed = add_sink(&kWatcher) + add_sink(&kPreview);

class SinkTest : public TactoTest {
 protected:
  void TearDown() override {
    watching = previewing = 0;
    seen.clear();
    previewed.clear();
    TactoTest::TearDown();
  }
};

TEST_F(SinkTest, AWatcherSeesEveryDotWithItsLineCellsAndDroppedOnes) {
  watching = 1;
  run_program("esa600g\nplot 0 0 0\nplot 100 0 0\nbrl 0 0 A\n");  // cells as dots on the ESA600G
  const std::vector<std::string> expected = {"line 2 figure taken 408 533", "line 3 figure dropped taken 0 0",
                                             "line 4 cell taken 408 541"};
  EXPECT_EQ(seen, expected);
  EXPECT_EQ(emitted().size(), 3u + 4u + 4u);  // enter, the figure's address, the cell's address
}

TEST_F(SinkTest, ANewOutputTakesDotsSizesAndFeedsAndTheEmbosserStaysSilent) {
  previewing = 1;
  run_program("esa600g\nbegin\ndot 0\nplot 0 0 0\nff\nend\n");
  const std::vector<std::string> expected = {"dot 490 408 0", "page end"};
  EXPECT_EQ(previewed, expected);
  EXPECT_EQ(plot_state.dot_size, 0);  // not the ESA600G's own code 3
  EXPECT_EQ(picture_output(), 1);
  EXPECT_EQ(emitted(), "");  // no plotter mode, dot, size or form feed
}
