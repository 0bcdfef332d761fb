// curve_cmds.h - handlers of the curve commands: the function curve family, splines, broken lines and the box-and-whisker plot.
#ifndef TACTO_CURVES_CURVE_CMDS_H
#define TACTO_CURVES_CURVE_CMDS_H

struct Command;

int cmd_bwplot(const Command &cmd);
int cmd_function_curve(const Command &cmd);
int cmd_spline(const Command &cmd);
int cmd_bline(const Command &cmd);

#endif
