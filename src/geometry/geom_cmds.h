// geom_cmds.h - handlers of the page geometry commands: papers and printers, frame, window, origin, orientation, view, angle unit, rotation, mirroring and nested programs.
#ifndef TACTO_GEOMETRY_GEOM_CMDS_H
#define TACTO_GEOMETRY_GEOM_CMDS_H

struct Command;

int cmd_radian(const Command &cmd);
int cmd_degree(const Command &cmd);
int cmd_frame(const Command &cmd);
int cmd_window(const Command &cmd);
int cmd_origin(const Command &cmd);
int cmd_paper(const Command &cmd);
int cmd_set_printer(const Command &cmd);
int cmd_fmt(const Command &cmd);
int cmd_portrait(const Command &cmd);
int cmd_landscape(const Command &cmd);
int cmd_view(const Command &cmd);
int cmd_rotate(const Command &cmd);
int cmd_mirror(const Command &cmd);
int cmd_select_printer(const Command &cmd);
int cmd_paste(const Command &cmd);
int cmd_rpaste(const Command &cmd);
int cmd_include(const Command &cmd);
int cmd_document(const Command &cmd);

#endif
