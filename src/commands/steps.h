// steps.h - the step of the paper commands that crosses subsystems, which
// the setup menu takes too: a printer and paper chosen also switch the
// mirror off and clear the gap of the dot map.
#ifndef TACTO_COMMANDS_STEPS_H
#define TACTO_COMMANDS_STEPS_H

// select_paper, then the mirror off and the gap cleared; 0 when refused.
int choose_paper(int printer, int paper);

// paper_command (b5, b4, a4, a3, p8, p10 as PAPER_*), then the same.
int choose_paper_kind(int flag);

#endif
