"""The sample buildings: one description a family, from which every file of samples/ comes."""
