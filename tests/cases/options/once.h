#pragma once
int once;
