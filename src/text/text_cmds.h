// text_cmds.h - handlers of the Braille text commands: brl/braille and kana.
#ifndef TACTO_TEXT_TEXT_CMDS_H
#define TACTO_TEXT_TEXT_CMDS_H

struct Command;

// brl / braille X Y TEXT: the text's cells as they stand (Braille ASCII).
int cmd_braille(const Command &cmd);

// kana X Y TEXT: half-width katakana, digits and Latin text translated into
// Japanese Braille, then drawn as brl draws.
int cmd_kana(const Command &cmd);

#endif
