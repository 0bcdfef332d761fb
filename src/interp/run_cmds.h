// run_cmds.h - handlers of the commands that act on the run state: modes, lists, step, alarm, macros, calculator, version, system, wait, bye and quit.
#ifndef TACTO_INTERP_RUN_CMDS_H
#define TACTO_INTERP_RUN_CMDS_H

struct Command;

int cmd_log(const Command &cmd);
int cmd_error(const Command &cmd);
int cmd_calc(const Command &cmd);
int cmd_help(const Command &cmd);
int cmd_step(const Command &cmd);
int cmd_nostep(const Command &cmd);
int cmd_alarm(const Command &cmd);
int cmd_output(const Command &cmd);
int cmd_test(const Command &cmd);
int cmd_debug(const Command &cmd);
int cmd_bye(const Command &cmd);
int cmd_system(const Command &cmd);
int cmd_wait(const Command &cmd);
int cmd_version(const Command &cmd);
int cmd_define(const Command &cmd);
int cmd_undefine(const Command &cmd);
int cmd_comment(const Command &cmd);
int cmd_empty(const Command &cmd);
int cmd_quit(const Command &cmd);

#endif
