#!/usr/bin/env python3
"""Counts what each node of a graph reaches and is reached from, by igraph.

usage: igraph_closures.py FILE    FILE has the number of nodes, then a line "from to" for each edge; nodes count from 0

Prints the best of three times in seconds of the processor and the sum of all counts, a node itself not counted.
"""
import sys
import time

import igraph

with open(sys.argv[1], encoding="ascii") as file:
    nodes = int(file.readline())
    edges = [tuple(map(int, line.split())) for line in file]
graph = igraph.Graph(nodes, edges, directed=True)
best = float("inf")
for _ in range(3):
    begin = time.process_time()
    reached = sum(sum(graph.neighborhood_size(None, order=nodes, mode=mode)) - nodes for mode in ("in", "out"))
    best = min(best, time.process_time() - begin)
print(best, reached)
