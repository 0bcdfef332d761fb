// raster_cmds.h - handlers of the dot commands: pattern, gap, scrape, move, plot, point, dot size and page feeds.
#ifndef TACTO_RASTER_RASTER_CMDS_H
#define TACTO_RASTER_RASTER_CMDS_H

struct Command;

int cmd_design(const Command &cmd);
int cmd_gap(const Command &cmd);
int cmd_scrape(const Command &cmd);
int cmd_move(const Command &cmd);
int cmd_plot(const Command &cmd);
int cmd_point(const Command &cmd);
int cmd_dot(const Command &cmd);
int cmd_formfeed(const Command &cmd);
int cmd_ff(const Command &cmd);

#endif
