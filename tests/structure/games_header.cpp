#include "games/coordinate.h"
