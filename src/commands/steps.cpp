// steps.cpp - choosing a printer and paper.
#include "commands/steps.h"

#include "geometry/page.h"
#include "geometry/transform.h"
#include "raster/dmap.h"

// What a new paper brings besides its geometry.
static int paper_chosen() {
  xform.mirror_on = 0;
  reset_gap();
  return 1;
}

int choose_paper(int printer, int paper) { return select_paper(printer, paper) && paper_chosen(); }

int choose_paper_kind(int flag) { return paper_command(flag) && paper_chosen(); }
