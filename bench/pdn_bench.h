// What reading a large PDN file costs.
#pragma once

/// Adds the benchmarks "pdn/...". They share a file of 100 MB, which is written to the folder for temporary files when
/// the first of them runs and removed at the end.
void RegisterPdnBenchmarks();
