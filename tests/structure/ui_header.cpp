#include "ui/announcer.h"
