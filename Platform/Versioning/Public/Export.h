#pragma once

#define VERSIONING_API __attribute__((visibility("default")))
