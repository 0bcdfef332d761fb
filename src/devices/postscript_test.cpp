// postscript_test.cpp - the PostScript document: headers and trailers, pages,
// the landscape turn, the page mappings and the dot circles.
#include "devices/postscript.h"

#include "core/run_state.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/plot.h"
#include "support/test_env.h"

class PostscriptTest : public TactoTest {
 protected:
  // Opens a document, runs a program into it, closes it and reads it back.
  std::string document(const std::string &program, int ink_print = 0, int menu_job = 0) {
    EXPECT_EQ(ps_open(temp_path("out.ps").c_str(), ink_print, menu_job), 1);
    run_program(program);
    ps_close();
    return read_file(temp_path("out.ps"));
  }
  // What lies between the header and the trailer.
  static std::string body(const std::string &doc) {
    size_t from = doc.find("1 setlinewidth\n") + 15;
    return doc.substr(from, doc.rfind("showpage clear\n") - from);
  }
};

TEST_F(PostscriptTest, HeadersAndTrailersOfBothEntryPoints) {
  const std::string head =
      "%!PS-Adobe-3.0\n%%Creator: Tacto\n%%Title: tactile graphics\n"
      "%%CreationDate: Sun Sep 16 01:03:52 1973\n%%Pages: (atend)\n%%DocumentFonts: (atend)\n"
      "%%BoundingBox: 0 0 596 842\n%%DocumentPaperSize: a4\n%%EndComments\n%%Page: 1 1\n";
  const std::string tail = "%%DocumentFonts: Times\n%%EOF\n";
  // Without a feed the script level counts one page and the menu job none.
  EXPECT_EQ(document(""), head + "newpath\n\n1 setlinewidth\n\nshowpage clear\n%%Trailer\n%%Pages: 1\n" + tail);
  std::string menu = head;
  menu.replace(menu.find("tactile"), 7, "Tactile");
  EXPECT_EQ(document("", 0, 1),
            menu + "gsave\nnewpath\n\n1 setlinewidth\n\ngrestore\nshowpage clear\n%%Trailer\n%%Pages: 0\n" + tail);
  EXPECT_NE(document("", 1, 1).find("\n%%Title: inkprint graphics\n"), std::string::npos);
  EXPECT_EQ(ps.active, 0);
  EXPECT_EQ(ps.ink_print, 0);
}

TEST_F(PostscriptTest, PageStartsWaitForTheNextDot) {
  // Two feeds before a dot make page 3; the page after the last feed stays
  // empty and never reaches the file, though the script-level trailer counts it.
  std::string doc = document("plot 0 0 0\nff\nff\nplot 0 0 0\nff\n");
  EXPECT_EQ(body(doc), "297 420 1 0 360 arc fill stroke\nshowpage\n%%Page: 3 3\n297 420 1 0 360 arc fill stroke\n\n");
  EXPECT_NE(doc.find("%%Pages: 4\n"), std::string::npos);
  EXPECT_NE(document("plot 0 0 0\nff\nplot 0 0 0\n", 0, 1).find("%%Pages: 1\n"), std::string::npos);
}

TEST_F(PostscriptTest, BoxCornersInBothOrientations) {
  const FloatRect &w = page_geom.w;
  const IntRect &p = page_geom.p;  // ESA721 a4: 599 x 790 dots
  int x, y;
  ps_point_from_world(w.x0, w.y0, &x, &y);
  EXPECT_EQ(std::make_pair(x, y), std::make_pair(4, 65));
  ps_point_from_world(w.x1, w.y1, &x, &y);
  EXPECT_EQ(std::make_pair(x, y), std::make_pair(590, 775));
  ps_point_from_dot(p.y1, 0, &x, &y);  // bottom left cell
  EXPECT_EQ(std::make_pair(x, y), std::make_pair(4, 65));
  ps_point_from_dot(395, 300, &x, &y);  // 586 x 300 / 599 + 4.5 = 297.99; 710 x 395 / 790 + 65.5
  EXPECT_EQ(std::make_pair(x, y), std::make_pair(297, 420));
  set_landscape();
  ps_point_from_world(w.x0, w.y0, &x, &y);
  EXPECT_EQ(std::make_pair(x, y), std::make_pair(65, 4));
  ps_point_from_world(w.x1, w.y1, &x, &y);
  EXPECT_EQ(std::make_pair(x, y), std::make_pair(775, 590));
  ps_point_from_dot(0, 0, &x, &y);  // row = p.x1 - dx, col = p.y1 - dy: the top right
  EXPECT_EQ(std::make_pair(x, y), std::make_pair(775, 590));
}

TEST_F(PostscriptTest, CircleRadiusBySizeAndSource) {
  // plot_dot: size + 1, and kind 3 draws nothing; plot0: always 2; a map cell:
  // its size + 1. Mirroring makes every one an open circle, kind 3 included.
  std::string doc = document("plot 0 0 0\ndot 1\nplot 0 0 4\ndot 2\nplot 0 0 1\nplot 0 0 3\n");
  EXPECT_EQ(body(doc), "297 420 1 0 360 arc fill stroke\n297 420 2 0 360 arc fill stroke\n"
                       "297 420 3 0 360 arc fill stroke\n\n");
  ASSERT_EQ(ps_open(temp_path("b.ps").c_str(), 0, 0), 1);
  plot0(300, 395);  // cell (395, 300)
  ps_dot(0, 0, 1);
  xform.mirror_on = 1;
  ps_plot(0, 0, 3, plot_state.dot_size);
  plot0(300, 395);
  ps_dot(395, 300, 0);
  ps_close();
  EXPECT_EQ(body(read_file(temp_path("b.ps"))),
            "297 420 2 0 360 arc fill stroke\n4 775 2 0 360 arc fill stroke\n297 420 3 0 360 arc stroke\n"
            "297 420 2 0 360 arc stroke\n297 420 1 0 360 arc stroke\n\n");
}

TEST_F(PostscriptTest, LandscapeTurnsAtEveryCallAndAfterEachPageStart) {
  const std::string turn = "596 0 translate\n90 rotate\n";
  EXPECT_EQ(body(document("landscape\nlandscape\nplot 0 0 0\nff\nplot 0 0 0\n")),
            turn + turn + "420 297 1 0 360 arc fill stroke\nshowpage\n%%Page: 2 2\n" + turn +
                "420 297 1 0 360 arc fill stroke\n\n");
}

TEST_F(PostscriptTest, OpenFailuresAndASecondDocument) {
  run_program("postscript /no/such/dir/a.ps\n");
  std::string err = errors();
  EXPECT_NE(err.find(": not open a postscript file (/no/such/dir/a.ps)   press any key ? "), std::string::npos);
  EXPECT_EQ(ps_open("/no/such/dir/b.ps", 1, 1), 0);
  EXPECT_NE(errors().find(": postscript file (/no/such/dir/b.ps) was not open   press any key ? "),
            std::string::npos);
  EXPECT_EQ(ps.active, 0);

  // A second document ends the first; inside the image job a script may not open one.
  run_program("postscript " + temp_path("a.ps") + "\ninkprint " + temp_path("b.ps") + "\n");
  EXPECT_EQ(ps.ink_print, 1);
  EXPECT_NE(read_file(temp_path("a.ps")).find("%%EOF\n"), std::string::npos);
  ASSERT_EQ(ps_open(temp_path("m.ps").c_str(), 0, 1), 1);
  EXPECT_NE(read_file(temp_path("b.ps")).find("%%EOF\n"), std::string::npos);
  run_program("postscript " + temp_path("c.ps") + "\n");
  EXPECT_NE(errors().find(": postscript is not available in an image job"), std::string::npos);
  EXPECT_EQ(ps.menu_job, 1);
  EXPECT_EQ(run_state.error_count, 3);
}
