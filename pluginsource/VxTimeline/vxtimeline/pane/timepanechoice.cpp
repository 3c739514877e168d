#include "vxtimeline/pane/timepanechoice.h"

TimePaneChoice::~TimePaneChoice() = default;
