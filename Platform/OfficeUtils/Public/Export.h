#pragma once

#define OFFICEUTILS_API __attribute__((visibility("default")))
