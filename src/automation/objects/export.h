// Marks what libmoxplatform gives to the libraries built on it.
#pragma once

#define MOX_API __attribute__((visibility("default")))
