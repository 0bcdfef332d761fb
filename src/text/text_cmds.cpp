// text_cmds.cpp - the Braille text commands: brl/braille draws Braille ASCII
// as it stands, kana translates Japanese text first.
#include "text/text_cmds.h"

#include "core/run_state.h"
#include "text/braille.h"
#include "text/kana.h"

// x and y are single precision, as every world coordinate of a figure.
static float fp(int i) { return static_cast<float>(run_state.param[i]); }

int cmd_braille(const Command &) { return draw_braille(fp(1), fp(2), run_state.ptr); }

int cmd_kana(const Command &) {
  char cells[KANA_BUFFER];
  kana_translate(run_state.ptr, cells);
  return draw_braille(fp(1), fp(2), cells);
}
