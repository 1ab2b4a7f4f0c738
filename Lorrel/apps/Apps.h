#pragma once

// The group of operations about applications stands with the queries, which
// programs without a user interface link alone.
#include "Lorrel/apps/queries/Apps.h"
