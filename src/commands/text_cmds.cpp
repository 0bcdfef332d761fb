// text_cmds.cpp - the text commands: brl/braille draws Braille ASCII as it
// stands, kana translates Japanese text first; alphanumeric and kanjikana
// write ink-print text.
#include "commands/handlers.h"

#include "commands/command.h"
#include "core/diag.h"
#include "devices/inkprint.h"
#include "geometry/page.h"
#include "text/braille.h"
#include "text/kana.h"

int cmd_braille(const Command &) { return draw_braille(fparam(1), fparam(2), run_state.ptr); }

int cmd_kana(const Command &) {
  char cells[KANA_BUFFER];
  kana_translate(run_state.ptr, cells);
  return draw_braille(fparam(1), fparam(2), cells);
}

// alphanumeric and kanjikana: x, y and the text; the baseline lies 2 mm below
// y. The range checks hold whatever the output.
static int ink_text_command(int japanese) {
  double x = param(1), y = param(2);
  double base = y - mm_to_dy(2.0);
  const FloatRect &w = page_geom.w;
  if (!(x >= w.x0 && x <= w.x1)) {
    if (japanese) return put_errorf("illegal wx0 %.2f (%.2f-%.2f)", x, w.x0, w.x1);
    return put_errorf("out of range wx0 %.2f (%.2f-%.2f)", x, w.x0, w.x1);
  }
  if (!(base >= w.y0 && base <= w.y1)) {
    if (japanese) return put_errorf("illegal wy0 %.2f (%.2f-%.2f)", base, w.y0, w.y1);
    return put_errorf("out of range wy0 %.2f (%.2f-%.2f)", base, w.y0, w.y1);
  }
  ink_text(x, base, run_state.ptr, japanese);
  return 1;
}

int cmd_alphanumeric(const Command &) { return ink_text_command(0); }

int cmd_kanjikana(const Command &) { return ink_text_command(1); }
