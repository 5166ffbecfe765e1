// Another one.
#pragma once
