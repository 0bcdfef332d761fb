// text_cmds.h - handlers of the Braille text commands: brl/braille and kana.
#ifndef TACTO_TEXT_TEXT_CMDS_H
#define TACTO_TEXT_TEXT_CMDS_H

struct Command;

int cmd_braille(const Command &cmd);
int cmd_kana(const Command &cmd);

#endif
