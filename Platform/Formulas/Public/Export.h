#pragma once

#define FORMULAS_API __attribute__((visibility("default")))
