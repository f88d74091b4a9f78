#include "net/message_tokens.h"
