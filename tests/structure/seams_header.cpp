#include "seams/screen.h"
