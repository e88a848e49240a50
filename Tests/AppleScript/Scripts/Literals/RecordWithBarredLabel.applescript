{|my label|:1, |a-b|:2}
--> {my label:1, |a-b|:2}
