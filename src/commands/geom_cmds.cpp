// geom_cmds.cpp - page geometry commands, and the steps they take beyond the
// geometry: a new paper switches the mirror off and clears the gap of the
// dot map (commands/steps.h), landscape turns the PostScript page, and
// switching the mirror sends the page in hand and sets the output switch.
#include "commands/handlers.h"

#include <cstring>

#include "commands/command.h"
#include "commands/steps.h"
#include "core/diag.h"
#include "core/run_state.h"
#include "devices/embosser.h"
#include "devices/postscript.h"
#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/dmap.h"
#include "text/brltable.h"

int cmd_radian(const Command &) {
  xform.degree_mode = 0;
  return 1;
}

int cmd_degree(const Command &) {
  xform.degree_mode = 1;
  return 1;
}

int cmd_frame(const Command &) {
  return set_frame(iparam(1), iparam(2), iparam(3), iparam(4), param(5), param(6), param(7), param(8));
}

int cmd_window(const Command &) { return set_window(param(1), param(2), param(3), param(4)); }

int cmd_origin(const Command &) { return set_origin(param(1), param(2), param(3), param(4)); }

int cmd_paper(const Command &cmd) {
  static const struct {
    const char *word;
    int flag;
  } papers[] = {{"b5", PAPER_B5}, {"b4", PAPER_B4}, {"a4", PAPER_A4},
                {"a3", PAPER_A3}, {"p8", PAPER_P8}, {"p10", PAPER_P10}};
  int flag = PAPER_A4;
  for (const auto &p : papers)
    if (strcmp(cmd.word, p.word) == 0) flag = p.flag;
  int ok = choose_paper_kind(flag);
  // The window as the command leaves it (unchanged when it was refused).
  const FloatRect &w = page_geom.w;
  if (echoing()) echo("%s%s //0 window %.3f %.3f %.3f %.3f\n", run_state.indent, cmd.word, w.x0, w.x1, w.y0, w.y1);
  return ok;
}

int cmd_set_printer(const Command &) { return choose_paper(iparam(1), iparam(2)); }

int cmd_fmt(const Command &) { return set_fmt(iparam(1), iparam(2)); }

int cmd_portrait(const Command &) {
  set_portrait();
  return 1;
}

int cmd_landscape(const Command &) {
  set_landscape();
  ps_turn_page();
  return 1;
}

int cmd_view(const Command &) {
  show_geometry();
  return 1;
}

int cmd_rotate(const Command &) {
  int flag = iparam(1);
  set_rotate(flag, param(2), param(3), param(4));
  return flag >= 0 && flag <= 3;
}

int cmd_mirror(const Command &) {
  int flag = iparam(1);
  int printer = page_geom.printer;
  if ((flag == 0 || flag == 1) && flag != xform.mirror_on && (printer == ESA721 || printer == ESA600G)) {
    // The page in hand was drawn the other way round: send it first.
    flush_page();
    if (printer == ESA721) {
      int target = run_state.output_target;
      if (flag == 1) {
        if (target == 2) embosser.output_enabled = 1;
        if (target == 1) embosser.output_enabled = 0;
        leave_plotter_mode();
      } else if (target == 1 || target == 2) {
        embosser.output_enabled = 1;
      }
    }
  }
  return set_mirror(flag, param(2));
}

int cmd_select_printer(const Command &cmd) {
  if (strcmp(cmd.word, "esa721") == 0) return choose_paper(ESA721, 1);
  if (strcmp(cmd.word, "esa600g") == 0) return choose_paper(ESA600G, 3);
  return choose_paper(EVEREST_D, 6);
}

int cmd_document(const Command &) {
  end_job();
  FILE *f = fopen(run_state.fname0, "r");
  if (f == nullptr) return put_errorf("document %s can not open", run_state.fname0);
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
