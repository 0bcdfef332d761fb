// text_cmds.cpp - the Braille text commands.
#include "text/text_cmds.h"

int cmd_braille(const Command &) { return 1; }

int cmd_kana(const Command &) { return 1; }
