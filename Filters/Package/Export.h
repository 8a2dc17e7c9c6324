#pragma once

#define FILTERS_API __attribute__((visibility("default")))
