// device_cmds.h - handlers of the output commands: embosser jobs, printer and plotter mode, output switch, page, and the PostScript files.
#ifndef TACTO_DEVICES_DEVICE_CMDS_H
#define TACTO_DEVICES_DEVICE_CMDS_H

struct Command;

int cmd_begin(const Command &cmd);
int cmd_end(const Command &cmd);
int cmd_printer(const Command &cmd);
int cmd_plotter(const Command &cmd);
int cmd_on_off(const Command &cmd);
int cmd_page(const Command &cmd);
int cmd_postscript(const Command &cmd);
int cmd_inkprint(const Command &cmd);

#endif
