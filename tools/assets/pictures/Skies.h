#pragma once

#include <glm/glm.hpp>

/// Skies as functions of the direction one looks in (unit length, y up): colour as it is shown at noon;
/// at other times the editor multiplies it by the day's tint. No sun, and below the horizon haze.

glm::vec3 clearSky(glm::vec3 direction);
glm::vec3 dustySky(glm::vec3 direction);
glm::vec3 cumulusSky(glm::vec3 direction);
glm::vec3 overcastSky(glm::vec3 direction);
glm::vec3 cirrusSky(glm::vec3 direction);
