#include "app/configuration.h"
