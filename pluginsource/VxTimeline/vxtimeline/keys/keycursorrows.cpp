#include "vxtimeline/keys/keycursorrows.h"

KeyCursorRows::~KeyCursorRows() = default;
