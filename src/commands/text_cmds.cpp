// text_cmds.cpp - the Braille text commands: brl/braille draws Braille ASCII
// as it stands, kana translates Japanese text first.
#include "commands/handlers.h"

#include "commands/command.h"
#include "text/braille.h"
#include "text/kana.h"

int cmd_braille(const Command &) { return draw_braille(fparam(1), fparam(2), run_state.ptr); }

int cmd_kana(const Command &) {
  char cells[KANA_BUFFER];
  kana_translate(run_state.ptr, cells);
  return draw_braille(fparam(1), fparam(2), cells);
}
