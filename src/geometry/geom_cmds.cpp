// geom_cmds.cpp - page geometry commands.
#include "geometry/geom_cmds.h"

#include <cstring>

#include "core/diag.h"
#include "core/echo.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "geometry/winstack.h"
#include "interp/commands.h"
#include "text/brltable.h"

static const double *const P = run_state.param;

int cmd_radian(const Command &) {
  xform.degree_mode = 0;
  return 1;
}

int cmd_degree(const Command &) {
  xform.degree_mode = 1;
  return 1;
}

int cmd_frame(const Command &) {
  return set_frame(trunc_int(P[1]), trunc_int(P[2]), trunc_int(P[3]), trunc_int(P[4]), P[5], P[6], P[7], P[8]);
}

int cmd_window(const Command &) { return set_window(P[1], P[2], P[3], P[4]); }

int cmd_origin(const Command &) { return set_origin(P[1], P[2], P[3], P[4]); }

int cmd_paper(const Command &cmd) {
  static const struct {
    const char *word;
    int flag;
  } papers[] = {{"b5", PAPER_B5}, {"b4", PAPER_B4}, {"a4", PAPER_A4},
                {"a3", PAPER_A3}, {"p8", PAPER_P8}, {"p10", PAPER_P10}};
  int flag = PAPER_A4;
  for (const auto &p : papers)
    if (strcmp(cmd.word, p.word) == 0) flag = p.flag;
  int ok = paper_command(flag);
  // The window as the command leaves it (unchanged when it was refused).
  const FloatRect &w = page_geom.w;
  if (echoing()) echo("%s%s //0 window %.3f %.3f %.3f %.3f\n", run_state.indent, cmd.word, w.x0, w.x1, w.y0, w.y1);
  return ok;
}

int cmd_set_printer(const Command &) { return select_paper(trunc_int(P[1]), trunc_int(P[2])); }

int cmd_fmt(const Command &) { return set_fmt(trunc_int(P[1]), trunc_int(P[2])); }

int cmd_portrait(const Command &) {
  set_portrait();
  return 1;
}

int cmd_landscape(const Command &) {
  set_landscape();
  return 1;
}

int cmd_view(const Command &) {
  show_geometry();
  return 1;
}

int cmd_rotate(const Command &) {
  int flag = trunc_int(P[1]);
  set_rotate(flag, P[2], P[3], P[4]);
  return flag >= 0 && flag <= 3;
}

int cmd_mirror(const Command &) { return set_mirror(trunc_int(P[1]), P[2]); }

int cmd_select_printer(const Command &cmd) {
  if (strcmp(cmd.word, "esa721") == 0) return select_paper(ESA721, 1);
  if (strcmp(cmd.word, "esa600g") == 0) return select_paper(ESA600G, 3);
  return select_paper(EVEREST_D, 6);
}

int cmd_paste(const Command &) { return paste(run_state.fname0, P[1], P[2], P[3], P[4]); }

int cmd_rpaste(const Command &) { return rpaste(run_state.fname0, P[1], P[2], P[3], P[4], P[5]); }

int cmd_include(const Command &) { return paste(run_state.fname0, 0, 0, 1, 1); }

int cmd_document(const Command &) {
  end_job();
  FILE *f = fopen(run_state.fname0, "r");
  if (f == nullptr) {
    return put_errorf("document %s can not open", run_state.fname0);
  }
  // Lines of at most 71 characters, each character as the embosser's table has it.
  char line[72];
  while (fgets(line, sizeof line, f) != nullptr) {
    for (char *c = line; *c; c++) *c = static_cast<char>(normalize_char(static_cast<unsigned char>(*c)));
    fputs(line, run_state.echo_out);
    if (strlen(line) == sizeof line - 1 && line[sizeof line - 2] != '\n') fputc('\n', run_state.echo_out);
  }
  fflush(run_state.echo_out);
  fclose(f);
  return 1;
}
