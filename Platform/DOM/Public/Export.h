#pragma once

#define DOM_API __attribute__((visibility("default")))
